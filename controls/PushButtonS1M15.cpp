#include "controls/PushButtons.h"

#include <QGraphicsDropShadowEffect>

PushButtonS1M15::PushButtonS1M15(QWidget* parent) : PlateButton(parent), mShadow(new QGraphicsDropShadowEffect(this))
{
    constexpr double kBlur = 12; // pixels
    mShadow->setOffset(0);
    mShadow->setBlurRadius(kBlur);
    mShadow->setColor(quillon::FocusMark::color());
    mShadow->setEnabled(false);
    setGraphicsEffect(mShadow);
}

void PushButtonS1M15::setShadowEnabled(bool on)
{
    mShadow->setEnabled(on);
}

bool PushButtonS1M15::isShadowEnabled() const
{
    return mShadow->isEnabled();
}
