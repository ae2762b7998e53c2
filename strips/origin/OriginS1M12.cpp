#include "strips/origin/OriginS1M12.h"

#include "controls/DialS1M6.h"
#include "controls/PushButtonGroups.h"
#include "controls/VolumeMeterS1M2.h"

OriginS1M12::OriginS1M12(const QString& objectName, QWidget* parent) : OriginBase({51, 220}, objectName, parent)
{
    quillon::standBeside(
        addMeter(new VolumeMeterS1M2(this), "widgetVolumeMeter", {4.0F, 0.0F, 92.0F, 57.0F, quillon::From::NameRow}));
    addGain(new DialS1M6(this), "widgetDial", {4.0F, 58.0F, 92.0F, 15.5F, quillon::From::NameRow})->setMinusInfinity(true);
    addPanel(new PushButtonGroupS1M4(this), "widgetPushButtonGroup2", {26.0F, 85.0F, 48.0F, 0.0F});
    declare();
    setGainRange(quillon::scaleLine);
}
