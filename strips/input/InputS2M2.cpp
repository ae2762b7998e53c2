#include "strips/input/InputS2M2.h"

#include "controls/HSliderS2M1.h"
#include "controls/VolumeMeterS2M1.h"
#include "strips/ButtonPanel.h"

namespace
{

constexpr quillon::PanelButton kSwitches[]{{.name = "MUTE", .english = "MUTE", .chinese = "静音", .tone = quillon::PlateTone::Red}};
constexpr quillon::PanelShape kPanel{"S2M2", quillon::PlateStyle::Flat, false, 45, 13, 1, kSwitches};
constexpr const char* kNames[]{"buttonMute"};

} // namespace

InputS2M2::InputS2M2(const QString& objectName, QWidget* parent) : OriginBase({226, 40}, objectName, parent)
{
    body().head().setNamePlace({2.0F, 8.0F, 20.0F, 46.0F});
    addPanel(new quillon::ButtonPanel(kPanel, this), "widgetPushButton", {2.0F, 59.0F, 20.0F, 33.0F})->setObjectNames(kNames);
    // The bars are of one height; the scale is below both.
    auto* top = addSide(false, new VolumeMeterS2M1(this), "volumeTop", {23.0F, 10.0F, 45.0F, 26.0F});
    top->setHeightRatio(4, 92, 0, 0, 4);
    top->setScaleLinesHidden(true);
    addSide(true, new VolumeMeterS2M1(this), "volumeBottom", {23.0F, 38.0F, 45.0F, 56.0F})->setHeightRatio(2, 43, 9, 40, 6);
    addGain(new HSliderS2M1(this), "slider", {69.0F, 22.0F, 29.5F, 54.0F})->setMinusInfinity(true);
    declare();
    setGainRange(quillon::scaleAux);
    setChannelName(QStringLiteral("AUX"));
}
