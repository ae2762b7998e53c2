#include "controls/DialS1M6.h"

DialS1M6::DialS1M6(QWidget* parent)
    : QWidget(parent),
      LadderDialFace(this, quillon::LadderDialLaw(), quillon::kPictureDial, [this](float value) { emit valueChanged(value); })
{
}

bool DialS1M6::event(QEvent* event)
{
    return mCore.handle(event) || QWidget::event(event);
}
