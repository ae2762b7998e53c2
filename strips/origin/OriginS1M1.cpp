#include "strips/origin/OriginS1M1.h"

#include "controls/PushButtons.h"
#include "controls/VSliderS1M1.h"
#include "controls/VolumeMeterS1M1.h"

OriginS1M1::OriginS1M1(const QString& objectName, QWidget* parent) : OriginBase({80, 220}, objectName, parent)
{
    addPanel(new PushButtonS1M8(this), "widgetPushButton", {12.0F, 11.0F, 76.0F, 0.0F});
    quillon::standBeside(
        addMeter(new VolumeMeterS1M1(this), "widgetVolumeMeter", {8.0F, 38.0F, 36.0F, 46.0F, quillon::From::NameRow}));
    addGain(new VSliderS1M1(this), "widgetVSlider", {50.0F, 38.0F, 42.0F, 46.0F, quillon::From::NameRow});
    declare();
    setGainRange(quillon::scaleMicrophone);
}
