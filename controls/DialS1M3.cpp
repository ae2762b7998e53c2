#include "controls/DialS1M3.h"

DialS1M3::DialS1M3(QWidget* parent)
    : QWidget(parent), PlainDialFace(this, quillon::PlainDialLaw(quillon::kDrawnDialRules), quillon::kRingDial,
                                     [this](float value) { emit valueChanged(value); })
{
}

bool DialS1M3::event(QEvent* event)
{
    return mCore.handle(event) || QWidget::event(event);
}
