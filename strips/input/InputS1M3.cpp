#include "strips/input/InputS1M3.h"

#include "controls/PushButtonGroups.h"

InputS1M3::InputS1M3(const QString& objectName, QWidget* parent) : StereoInput(objectName, parent)
{
    addSoloMute(2, new PushButtonGroupS1M2(this));
    declare();
}
