#include "controls/VSliderS1M2.h"

VSliderS1M2::VSliderS1M2(QWidget* parent)
    : QWidget(parent), FaderFace(this, quillon::kVerticalFader, [this](float value) { emit valueChanged(value); })
{
}

void VSliderS1M2::setLadder(int max, int threshold1, int threshold2, int min)
{
    if (mLaw.setLadder({float(max), float(threshold1), float(threshold2), float(min)}))
        mCore.applyBounds();
}
