#include "controls/TitleButton.h"

#include <QPainter>

namespace quillon
{

namespace
{

constexpr QColor kInk{161, 161, 161};
constexpr QColor kHover{53, 53, 53};
constexpr QColor kPressed{22, 22, 22};
constexpr QColor kFocus{67, 207, 124};
constexpr qreal kRadius = 4;
// The sign stands in a square of 32.
constexpr qreal kSquare = 32;
constexpr qreal kStroke = 1.8;

} // namespace

TitleButton::TitleButton(Sign sign, QWidget* bar) : QPushButton(bar), mSign(sign)
{
    setMinimumSize(1, 1);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    // Neither the Return key of the body nor a mere click may end up on a button of the frame.
    setAutoDefault(false);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

void TitleButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(hasFocus() ? QPen(kFocus) : QPen(Qt::NoPen));
    if (isDown() || underMouse()) {
        painter.setBrush(isDown() ? kPressed : kHover);
    }
    painter.drawRoundedRect(plate, kRadius, kRadius);

    const qreal scale = std::min(width(), height()) / kSquare;
    painter.translate(rect().toRectF().center());
    painter.scale(scale, scale);
    painter.setPen(QPen(kInk, kStroke, Qt::SolidLine, Qt::RoundCap));
    if (mSign == Sign::Minimize) {
        painter.drawLine(QPointF(-6, 0.5), QPointF(6, 0.5));
    } else {
        painter.drawLine(QPointF(-5.5, -5.5), QPointF(5.5, 5.5));
        painter.drawLine(QPointF(5.5, -5.5), QPointF(-5.5, 5.5));
    }
}

} // namespace quillon
