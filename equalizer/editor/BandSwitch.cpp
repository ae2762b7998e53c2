#include "equalizer/editor/BandSwitch.h"

#include <QPainter>
#include <algorithm>

namespace quillon
{

namespace
{

constexpr double kIndicator = 0.9; // of the height
constexpr double kFocused = 0.66;  // leaves room for the ring around it
constexpr double kRadius = 0.1;    // of the indicator
constexpr QPointF kTick[]{{0.22, 0.53}, {0.42, 0.73}, {0.79, 0.29}};

} // namespace

BandSwitch::BandSwitch(QWidget* parent) : FocusMarked(parent)
{
    setMinimumSize(1, 1);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
}

void BandSwitch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto square = [this](double share) {
        const double side = std::min(width(), height()) * share;
        return QRectF((width() - side) / 2, (height() - side) / 2, side, side);
    };
    const double line = std::max(1.0, height() * 0.07);
    if (mFocus.isShown()) {
        const QRectF ring = square(1).adjusted(line / 2, line / 2, -line / 2, -line / 2);
        painter.setPen(QPen(FocusMark::color(), line));
        painter.drawRoundedRect(ring, ring.width() * kRadius, ring.width() * kRadius);
    }
    const QRectF box = square(mFocus.isShown() ? kFocused : kIndicator);
    const double radius = box.width() * kRadius;
    const bool lit = isEnabled() && underMouse();
    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(lit ? FocusMark::color().lighter(112) : FocusMark::color());
        painter.drawRoundedRect(box, radius, radius);
        QPolygonF tick;
        for (const QPointF& point : kTick) {
            tick += box.topLeft() + point * box.width();
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(16, 41, 26), std::max(1.4, box.width() * 0.13), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(tick);
        return;
    }
    painter.setPen(QPen(lit ? QColor(190, 190, 190) : QColor(138, 138, 138), line));
    painter.setBrush(QColor(31, 31, 31));
    painter.drawRoundedRect(box.adjusted(line / 2, line / 2, -line / 2, -line / 2), radius, radius);
}

} // namespace quillon
