#include "controls/DialS1M2.h"

DialS1M2::DialS1M2(QWidget* parent)
    : QWidget(parent),
      LadderDialFace(this, quillon::LadderDialLaw(), quillon::kDiscDial, [this](float value) { emit valueChanged(value); })
{
}

bool DialS1M2::event(QEvent* event)
{
    return mCore.handle(event) || QWidget::event(event);
}
