#include "controls/group/PlateButton.h"

#include <QEvent>
#include <QFocusEvent>
#include <QPainter>

namespace quillon
{
namespace
{
constexpr QColor kCaptionOn{222, 222, 222};
constexpr QColor kCaptionOff{161, 161, 161};
constexpr QColor kCaptionDisabled{96, 96, 96};
constexpr QColor kRing{67, 207, 124};
} // namespace

PlateButton::PlateButton(QWidget* parent, bool lampAtFoot) : QPushButton(parent), mLampAtFoot(lampAtFoot)
{
    setCheckable(true);
    setAutoDefault(false);
    setAttribute(Qt::WA_LayoutUsesWidgetRect);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(1, 1);
}

bool PlateButton::event(QEvent* event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        update();
    }
    return QPushButton::event(event);
}

void PlateButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF plate(rect());
    const qreal radius = qMin(plate.width(), plate.height()) * 0.2;
    if (isEnabled() && (isDown() || underMouse())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDown() ? QColor(0, 0, 0, 56) : QColor(255, 255, 255, 16));
        painter.drawRoundedRect(plate, radius, radius);
    }
    painter.setPen(!isEnabled() ? kCaptionDisabled : isChecked() ? kCaptionOn : kCaptionOff);
    painter.setFont(font());
    painter.drawText(rect().adjusted(0, 0, 0, mLampAtFoot ? -height() / 7 : 0), Qt::AlignCenter | Qt::TextDontClip, text());
    if (mRing) {
        painter.setPen(QPen(kRing, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(plate.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    }
}

void PlateButton::focusInEvent(QFocusEvent* event)
{
    mRing = event->reason() != Qt::MouseFocusReason;
    QPushButton::focusInEvent(event);
}

void PlateButton::focusOutEvent(QFocusEvent* event)
{
    mRing = false;
    QPushButton::focusOutEvent(event);
}
} // namespace quillon
