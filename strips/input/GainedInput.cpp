#include "strips/input/GainedInput.h"

#include "controls/DialS1M5.h"
#include "controls/DialS1M6.h"
#include "controls/VolumeMeterS1M1.h"
#include "controls/VolumeMeterS1M2.h"

namespace
{

constexpr quillon::InputShape kStereoShape{.minimum = {51, 220},
                                           .meter = {4.0F, 0.0F, 92.0F, 57.0F, quillon::From::NameRow},
                                           .groups = {{}, {2.0F, 82.5F, 96.0F, 0.0F}, {}},
                                           .dial = {4.0F, 58.0F, 92.0F, 15.5F, quillon::From::NameRow},
                                           .slider = {}};

} // namespace

MicrophoneInput::MicrophoneInput(const quillon::InputShape& shape, const QString& objectName, QWidget* parent)
    : InputBase(shape, objectName, parent)
{
    addMeter(new VolumeMeterS1M1(this));
}

void MicrophoneInput::addGain()
{
    mGainDial = addDial(new DialS1M5(this));
    mGainDial->setSignShown(true);
    setGainRange(0, 88);
}

MicrophoneInput& MicrophoneInput::setGainRange(float minimumDb, float maximumDb)
{
    mGainDial->setRange(minimumDb, maximumDb);
    return *this;
}

StereoInput::StereoInput(const QString& objectName, QWidget* parent) : InputBase(kStereoShape, objectName, parent)
{
    addMeter(new VolumeMeterS1M2(this));
    mGainDial = addDial(new DialS1M6(this));
    mGainDial->setMinusInfinity(true);
    setGainRange(quillon::scaleLine);
}

StereoInput& StereoInput::setGainRange(const quillon::GainScale& scale)
{
    mGainDial->setLadder(scale.maximum, scale.knee, scale.lowKnee, scale.minimum);
    return *this;
}
