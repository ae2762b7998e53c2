#include "controls/PushButtonGroupS1M2.h"

PushButtonGroupS1M2::PushButtonGroupS1M2(QWidget* parent) : QWidget(parent), mCore(this, quillon::kGroupS1M2)
{
    connect(&mCore, &quillon::GroupCore::stateChanged, this, &PushButtonGroupS1M2::stateChanged);
}
