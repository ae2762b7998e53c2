#include "strips/input/InputS1M5.h"

#include "controls/PushButtonGroups.h"
#include "strips/input/MicrophoneShape.h"

namespace
{

constexpr quillon::InputShape kShape = quillon::polarityShape(quillon::kMicrophoneSwitches, {});

} // namespace

InputS1M5::InputS1M5(const QString& objectName, QWidget* parent) : MicrophoneInput(kShape, objectName, parent)
{
    addSwitches(1, new PushButtonGroupS1M12(this));
    addGain();
    addSoloMute(2, new PushButtonGroupS1M3(this));
    declare();
}
