#include "strips/input/InputS1M2.h"

#include "controls/DialS1M5.h"
#include "controls/HSliderS1M1.h"
#include "controls/PushButtonGroups.h"
#include "controls/VolumeMeterS1M1.h"
#include "strips/input/MicrophoneShape.h"

namespace
{

constexpr quillon::InputShape kShape = quillon::microphoneShape(quillon::kMicrophoneSwitches, {});

} // namespace

InputS1M2::InputS1M2(const QString& objectName, QWidget* parent) : InputBase(kShape, objectName, parent)
{
    addMeter(new VolumeMeterS1M1(this))->setWidthRatio(23, 30, 6, 35);
    addSwitches(1, new PushButtonGroupS1M11(this));
    mGainDial = addDial(new DialS1M5(this));
    mGainDial->setSignShown(true);
    addBalance(new HSliderS1M1(this));
    addSoloMute(2, new PushButtonGroupS1M2(this));
    declare();
    setGainRange(0, 88);
}

InputS1M2& InputS1M2::setGainRange(float minimumDb, float maximumDb)
{
    mGainDial->setRange(minimumDb, maximumDb);
    return *this;
}
