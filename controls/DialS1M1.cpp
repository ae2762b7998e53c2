#include "controls/DialS1M1.h"

DialS1M1::DialS1M1(QWidget* parent)
    : QWidget(parent), PlainDialFace(this, quillon::PlainDialLaw(quillon::kDrawnDialRules), quillon::kDiscDial,
                                     [this](float value) { emit valueChanged(value); })
{
}

bool DialS1M1::event(QEvent* event)
{
    return mCore.handle(event) || QWidget::event(event);
}
