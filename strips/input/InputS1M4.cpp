#include "strips/input/InputS1M4.h"

#include "controls/PushButtonGroups.h"
#include "strips/input/MicrophoneShape.h"

namespace
{

constexpr quillon::InputShape kShape = quillon::polarityShape(quillon::kMicrophoneSelector, quillon::kMicrophoneSwitches);

} // namespace

InputS1M4::InputS1M4(const QString& objectName, QWidget* parent) : MicrophoneInput(kShape, objectName, parent)
{
    addSelector(1, new PushButtonGroupS1M9(this));
    addSwitches(3, new PushButtonGroupS1M12(this));
    addGain();
    addSoloMute(2, new PushButtonGroupS1M3(this));
    declare();
}
