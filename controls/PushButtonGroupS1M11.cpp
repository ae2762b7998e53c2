#include "controls/PushButtonGroupS1M11.h"

PushButtonGroupS1M11::PushButtonGroupS1M11(QWidget* parent) : QWidget(parent), mCore(this, quillon::kGroupS1M11)
{
    connect(&mCore, &quillon::GroupCore::stateChanged, this, &PushButtonGroupS1M11::stateChanged);
    connect(&mCore, &quillon::GroupCore::mouseClickEvent, this, &PushButtonGroupS1M11::mouseClickEvent);
}
