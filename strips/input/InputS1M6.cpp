#include "strips/input/InputS1M6.h"

#include "controls/PushButtonGroups.h"

InputS1M6::InputS1M6(const QString& objectName, QWidget* parent) : StereoInput(objectName, parent)
{
    addSoloMute(2, new PushButtonGroupS1M3(this));
    declare();
}
