#include "strips/input/InputS2M1.h"

#include "controls/HSliderS2M1.h"
#include "controls/VolumeMeterS2M1.h"
#include "strips/ButtonPanel.h"
#include "strips/input/PillSelector.h"

namespace
{

constexpr quillon::PanelButton kSwitches[]{{.name = "48V", .english = "48V", .chinese = "48V"},
                                           {.name = "MUTE", .english = "MUTE", .chinese = "静音", .tone = quillon::PlateTone::Red}};
constexpr quillon::PanelShape kPanel{"S2M1", quillon::PlateStyle::Flat, false, 54, 25, 2, kSwitches};
constexpr const char* kNames[]{"button48V", "buttonMute"};

} // namespace

InputS2M1::InputS2M1(const QString& objectName, QWidget* parent) : OriginBase({226, 60}, objectName, parent)
{
    body().head().setNamePlace({2.0F, 8.0F, 24.0F, 36.0F});
    addPanel(new quillon::ButtonPanel(kPanel, this), "widgetPushButton", {2.0F, 51.0F, 24.0F, 42.0F})->setObjectNames(kNames);
    addPanel(new quillon::PillSelector(this), "widgetMicrophones", {27.5F, 8.0F, 22.0F, 85.0F});
    addMeter(new VolumeMeterS2M1(this), "volume", {50.5F, 8.0F, 48.5F, 38.0F})->setHeightRatio(4, 50, 6, 38, 2);
    addGain(new HSliderS2M1(this), "slider", {52.0F, 57.0F, 46.0F, 31.0F});
    declare();
    setGainRange(quillon::scaleMicrophone);
}
