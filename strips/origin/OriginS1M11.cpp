#include "strips/origin/OriginS1M11.h"

#include "controls/DialS1M5.h"
#include "controls/PushButtonGroups.h"
#include "controls/VolumeMeterS1M1.h"

OriginS1M11::OriginS1M11(const QString& objectName, QWidget* parent) : OriginBase({80, 220}, objectName, parent)
{
    quillon::standBeside(
        addMeter(new VolumeMeterS1M1(this), "widgetVolumeMeter", {5.5F, 0.0F, 32.0F, 76.0F, quillon::From::NameRow}));
    addPanel(new PushButtonGroupS1M11(this), "widgetPushButtonGroup3", {38.0F, 24.0F, 60.0F, 0.0F});
    auto* dial = addGain(new DialS1M5(this), "widgetDial", {42.0F, 54.0F, 52.0F, 24.0F});
    dial->setSignShown(true);
    addPanel(new PushButtonGroupS1M4(this), "widgetPushButtonGroup2", {34.0F, 87.0F, 32.0F, 0.0F});
    declare();
    setGainRange(quillon::scaleMicrophone);
}
