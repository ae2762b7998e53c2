#include "strips/origin/OriginS1M9.h"

#include "controls/PushButtons.h"
#include "controls/VSliderS1M2.h"
#include "controls/VolumeMeterS1M1.h"
#include "controls/VolumeMeterS1M6.h"

OriginS1M9::OriginS1M9(const QString& objectName, QWidget* parent) : OriginBase({80, 220}, objectName, parent)
{
    auto* left = addSide(false, new VolumeMeterS1M1(this), "widgetMeterLeft", {4.0F, 3.0F, 29.0F, 72.0F, quillon::From::NameRow});
    left->setScaleLinesHidden(true);
    left->setWidthRatio(8, 36, 6, 50);
    left->setHeightRatio(8, 3, 2, 2, 85, 0);
    addGain(new VSliderS1M2(this), "widgetVSlider", {34.0F, 3.0F, 32.0F, 72.0F, quillon::From::NameRow})->setMinusInfinity(true);
    auto* right = addSide(true, new VolumeMeterS1M6(this), "widgetMeterRight", {67.0F, 3.0F, 29.0F, 72.0F, quillon::From::NameRow});
    right->setScaleLinesHidden(true);
    right->setWidthRatio(8, 36, 6, 50);
    right->setHeightRatio(8, 3, 2, 2, 85, 0);
    addPanel(new PushButtonS1M7(this), "widgetPushButton", {30.0F, 87.0F, 40.0F, 0.0F});
    declare();
    setGainRange(quillon::scaleLine);
}
