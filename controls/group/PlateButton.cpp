#include "controls/group/PlateButton.h"

#include <QEvent>
#include <QPainter>

namespace quillon
{
PlateButton::PlateButton(QWidget* parent, PlateStyle style, PlateTone tone)
    : FocusMarked(parent), mColors{plateColors(style, tone, false), plateColors(style, tone, true)}
{
    setAutoDefault(false);
    setAttribute(Qt::WA_LayoutUsesWidgetRect);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(1, 1);
}

void PlateButton::setLampPlace(LampPlace place)
{
    if (mLampPlace != place) {
        mLampPlace = place;
        layoutPlate();
        update();
    }
}

PlateLayout PlateButton::presentLayout() const
{
    return quillon::layoutPlate(size(), mLampPlace.value_or(lampPlaceFor(size())));
}

QSizeF PlateButton::captionSize() const
{
    return presentLayout().caption.size();
}

void PlateButton::layoutPlate()
{
    mLayout = presentLayout();
    for (std::size_t i = 0; i < mFill.size(); ++i) {
        QLinearGradient gradient(0, 0, 0, height());
        gradient.setColorAt(0, mColors[i].top);
        gradient.setColorAt(1, mColors[i].bottom);
        mFill[i] = mColors[i].top == mColors[i].bottom ? QBrush(mColors[i].top) : QBrush(gradient);
    }
}

void PlateButton::resizeEvent(QResizeEvent* event)
{
    layoutPlate();
    FocusMarked::resizeEvent(event);
}

bool PlateButton::event(QEvent* event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        update();
    }
    return FocusMarked::event(event);
}

void PlateButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(font());
    const std::size_t state = isChecked() ? 1 : 0;
    paintPlate(painter, mLayout, mColors[state], mFill[state], isCheckable(),
               {.enabled = isEnabled(), .hovered = underMouse(), .pressed = isDown(), .focused = mFocus.isShown()}, text());
}

} // namespace quillon
