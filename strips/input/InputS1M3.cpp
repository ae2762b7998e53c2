#include "strips/input/InputS1M3.h"

#include "controls/DialS1M6.h"
#include "controls/PushButtonGroups.h"
#include "controls/VolumeMeterS1M2.h"

namespace
{

constexpr quillon::InputShape kShape{.minimum = {51, 220},
                                     .meter = {4.0F, 0.0F, 92.0F, 57.0F, quillon::From::NameRow},
                                     .groups = {{}, {2.0F, 82.5F, 96.0F, 0.0F}, {}},
                                     .dial = {4.0F, 58.0F, 92.0F, 15.5F, quillon::From::NameRow},
                                     .slider = {}};

} // namespace

InputS1M3::InputS1M3(const QString& objectName, QWidget* parent) : InputBase(kShape, objectName, parent)
{
    addMeter(new VolumeMeterS1M2(this))->setWidthRatio(5, 10, 20, 26);
    mGainDial = addDial(new DialS1M6(this));
    mGainDial->setMinusInfinity(true);
    addSoloMute(2, new PushButtonGroupS1M2(this));
    declare();
    setGainRange(quillon::scaleLine);
}

InputS1M3& InputS1M3::setGainRange(const quillon::GainScale& scale)
{
    mGainDial->setLadder(scale.maximum, scale.knee, scale.lowKnee, scale.minimum);
    return *this;
}
