#include "controls/HSliderS2M1.h"

HSliderS2M1::HSliderS2M1(QWidget* parent)
    : QWidget(parent), WholeFaderFace(this, quillon::kHorizontalFader, [this](float value) { emit valueChanged(int(value)); })
{
}
