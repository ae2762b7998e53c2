#include "strips/origin/OriginS1M6.h"

#include "controls/VSliderS1M2.h"

OriginS1M6::OriginS1M6(const QString& objectName, QWidget* parent) : OriginBase({80, 220}, objectName, parent)
{
    addFaderColumn<VSliderS1M2>();
    declare();
    setGainRange(quillon::scaleAux);
}
