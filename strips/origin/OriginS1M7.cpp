#include "strips/origin/OriginS1M7.h"

#include "controls/PushButtons.h"
#include "controls/VSliderS1M1.h"
#include "controls/VolumeMeterS1M4.h"
#include "controls/VolumeMeterS1M5.h"

using namespace Qt::StringLiterals;

OriginS1M7::OriginS1M7(const QString& objectName, QWidget* parent) : OriginBase({80, 220}, objectName, parent)
{
    addSide(false, new VolumeMeterS1M4(this), "widgetMeterLeft", {4.0F, 3.0F, 29.0F, 72.0F, quillon::From::NameRow})
        ->setWidthRatio(43, 8, 20, 15, 14);
    addGain(new VSliderS1M1(this), "widgetVSlider", {34.0F, 3.0F, 32.0F, 72.0F, quillon::From::NameRow})->setMinusInfinity(true);
    addSide(true, new VolumeMeterS1M5(this), "widgetMeterRight", {67.0F, 3.0F, 29.0F, 72.0F, quillon::From::NameRow})
        ->setWidthRatio(43, 8, 20, 15, 14);
    addPanel(new PushButtonS1M7(this), "widgetPushButton", {30.0F, 87.0F, 40.0F, 0.0F});
    declare({u"GAIN"_s, u"GAINLeft"_s, u"GAINRight"_s});
    setMuteGain(-90);
    setGainRange(quillon::scaleRecord);
}
