#include "strips/origin/OriginS1M7.h"

#include "controls/VSliderS1M1.h"

using namespace Qt::StringLiterals;

OriginS1M7::OriginS1M7(const QString& objectName, QWidget* parent) : OriginBase({80, 220}, objectName, parent)
{
    addFaderColumn<VSliderS1M1>();
    declare({u"GAIN"_s, u"GAINLeft"_s, u"GAINRight"_s});
    setMuteGain(-90);
    setGainRange(quillon::scaleRecord);
}
