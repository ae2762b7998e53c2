#include "controls/PushButtonGroupS1M9.h"

PushButtonGroupS1M9::PushButtonGroupS1M9(QWidget* parent) : QWidget(parent), mCore(this, quillon::kGroupS1M9)
{
    connect(&mCore, &quillon::GroupCore::stateChanged, this, &PushButtonGroupS1M9::stateChanged);
}
