#include "controls/VSliderS1M1.h"

VSliderS1M1::VSliderS1M1(QWidget* parent)
    : QWidget(parent), WholeFaderFace(this, quillon::kVerticalFader, [this](float value) { emit valueChanged(int(value)); })
{
}
