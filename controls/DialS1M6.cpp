#include "controls/DialS1M6.h"

DialS1M6::DialS1M6(QWidget* parent)
    : QWidget(parent), mCore(this, mLaw, quillon::kPictureDial, [this](float value) { emit valueChanged(value); })
{
}

void DialS1M6::setValue(float value)
{
    if (mLaw.setValue(value))
        mCore.refresh();
}

void DialS1M6::setDefault(float value)
{
    mLaw.setDefault(value);
}

void DialS1M6::setLadder(int max, int threshold1, int threshold2, int threshold3)
{
    mLaw.setLadder({float(max), float(threshold1), float(threshold2), float(threshold3)});
    update();
}

void DialS1M6::setCentreArc(bool on)
{
    mCore.setCentreArc(on);
}

void DialS1M6::setArcVisible(bool visible)
{
    mCore.setArcVisible(visible);
}

void DialS1M6::setTextVisible(bool visible)
{
    mCore.setTextVisible(visible);
}

void DialS1M6::setPlusInfinity(bool on)
{
    mLaw.format.plusInfinity = on;
    update();
}

void DialS1M6::setMinusInfinity(bool on)
{
    mLaw.format.minusInfinity = on;
    update();
}

void DialS1M6::setFont(const QFont& font)
{
    mCore.setFont(font);
}

bool DialS1M6::event(QEvent* event)
{
    return mCore.handle(event) || QWidget::event(event);
}
