#include "controls/DialS1M4.h"

DialS1M4::DialS1M4(QWidget* parent)
    : QWidget(parent),
      LadderDialFace(this, quillon::LadderDialLaw(), quillon::kRingDial, [this](float value) { emit valueChanged(value); })
{
}

bool DialS1M4::event(QEvent* event)
{
    return mCore.handle(event) || QWidget::event(event);
}
