#include "strips/input/InputS1M1.h"

#include "controls/HSliderS1M1.h"
#include "controls/PushButtonGroups.h"
#include "strips/input/MicrophoneShape.h"

namespace
{

constexpr quillon::InputShape kShape = quillon::microphoneShape(quillon::kMicrophoneSelector, quillon::kMicrophoneSwitches);

} // namespace

InputS1M1::InputS1M1(const QString& objectName, QWidget* parent) : MicrophoneInput(kShape, objectName, parent)
{
    addSelector(1, new PushButtonGroupS1M9(this));
    addSwitches(3, new PushButtonGroupS1M11(this));
    addGain();
    addBalance(new HSliderS1M1(this));
    addSoloMute(2, new PushButtonGroupS1M2(this));
    declare();
}
