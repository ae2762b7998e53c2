#include "strips/input/InputS1M2.h"

#include "controls/HSliderS1M1.h"
#include "controls/PushButtonGroups.h"
#include "strips/input/MicrophoneShape.h"

namespace
{

constexpr quillon::InputShape kShape = quillon::microphoneShape(quillon::kMicrophoneSwitches, {});

} // namespace

InputS1M2::InputS1M2(const QString& objectName, QWidget* parent) : MicrophoneInput(kShape, objectName, parent)
{
    addSwitches(1, new PushButtonGroupS1M11(this));
    addGain();
    addBalance(new HSliderS1M1(this));
    addSoloMute(2, new PushButtonGroupS1M2(this));
    declare();
}
