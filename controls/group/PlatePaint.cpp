#include "controls/group/PlatePaint.h"

#include "controls/FocusMark.h"

#include <QFontMetricsF>
#include <QPainter>

namespace quillon
{
namespace
{
constexpr QColor kSlot{0, 0, 0, 90}; // an unlit lamp
constexpr QColor kDisabledEdge{64, 64, 64};
constexpr QColor kDisabledCaption{108, 108, 108};
constexpr QColor kDisabledLamp{96, 96, 96};

/// Lit shaded plates are darker than the colour they stand for, so that the caption keeps its contrast; edge and lamp have it pure.
PlateColors shaded(PlateTone tone)
{
    constexpr QColor kCaption{222, 222, 222};
    switch (tone) {
    case PlateTone::Amber:
        return {{148, 112, 31}, {115, 86, 23}, {217, 169, 61}, {255, 217, 120}, kCaption};
    case PlateTone::Red:
        return {{169, 48, 45}, {132, 33, 31}, {200, 81, 78}, {255, 154, 151}, kCaption};
    case PlateTone::Green:
        break;
    }
    return {{42, 122, 75}, {31, 95, 57}, {67, 207, 124}, {126, 240, 171}, kCaption};
}

PlateColors flat(PlateTone tone)
{
    constexpr QColor kCaption{229, 229, 229};
    switch (tone) {
    case PlateTone::Amber:
        return {{217, 169, 61}, {217, 169, 61}, {240, 200, 104}, {255, 246, 214}, kCaption};
    case PlateTone::Red:
        return {{149, 40, 37}, {149, 40, 37}, {190, 74, 70}, {255, 154, 151}, kCaption};
    case PlateTone::Green:
        break;
    }
    return {{28, 116, 64}, {28, 116, 64}, {67, 207, 124}, {126, 240, 171}, kCaption};
}
} // namespace

PlateColors plateColors(PlateStyle style, PlateTone tone, bool lit)
{
    constexpr QColor kCaptionOff{161, 161, 161};
    if (lit) {
        return style == PlateStyle::Shaded ? shaded(tone) : flat(tone);
    }
    return style == PlateStyle::Shaded ? PlateColors{{66, 66, 66}, {54, 54, 54}, {80, 80, 80}, kSlot, kCaptionOff}
                                       : PlateColors{{60, 60, 60}, {60, 60, 60}, {60, 60, 60}, kSlot, kCaptionOff};
}

LampPlace lampPlaceFor(QSize plate)
{
    return plate.width() <= 2.2 * plate.height() ? LampPlace::Foot : LampPlace::Left;
}

PlateLayout layoutPlate(QSize size, LampPlace lamp)
{
    const double w = size.width();
    const double h = size.height();
    const double thick = qBound(1.0, h * 0.12, h * 0.2);
    PlateLayout layout{QRectF(0.5, 0.5, w - 1, h - 1), {}, {}, qMin(w, h) * 0.2};
    if (lamp == LampPlace::Left) {
        layout.lamp = {qMax(2.0, h * 0.2), h * 0.25, thick, h * 0.5};
        const double inset = layout.lamp.right() + h * 0.08;
        layout.caption = QRectF(0, 0, w, h).adjusted(inset, 0, -inset, 0);
    } else {
        layout.lamp = {w * 0.32, h - thick - qMax(1.5, h * 0.12), w * 0.36, thick};
        layout.caption = {w * 0.06, 0.5, w * 0.88, layout.lamp.top()};
    }
    return layout;
}

void paintPlate(QPainter& painter, const PlateLayout& layout, const PlateColors& colors, const QBrush& fill, bool hasLamp,
                const PlateTouch& touch, const QString& caption)
{
    painter.setRenderHint(QPainter::Antialiasing);
    // A disabled plate is hollow, a hovered one has a bright rim, a pressed one gives way.
    const bool hovered = touch.enabled && touch.hovered && !touch.pressed;
    painter.setPen(!touch.enabled ? kDisabledEdge : hovered ? colors.edge.lighter(150) : colors.edge);
    painter.setBrush(touch.enabled ? fill : QBrush());
    painter.drawRoundedRect(layout.plate, layout.radius, layout.radius);
    painter.setPen(Qt::NoPen);
    if (touch.enabled && (touch.pressed || hovered)) {
        painter.setBrush(touch.pressed ? QColor(0, 0, 0, 72) : QColor(255, 255, 255, 20));
        painter.drawRoundedRect(layout.plate, layout.radius, layout.radius);
    }
    if (hasLamp) {
        const bool lit = colors.lamp.alpha() == 255;
        const double round = qMin(layout.lamp.width(), layout.lamp.height()) / 2;
        painter.setBrush(!touch.enabled && lit ? kDisabledLamp : colors.lamp);
        painter.drawRoundedRect(layout.lamp, round, round);
    }
    // Centred by the ink of capitals: a line box has room for descenders below, which would push the caption off its middle.
    const QFontMetricsF metrics(painter.font());
    const QPointF middle = layout.caption.center() + QPointF(0, touch.pressed ? 1 : 0);
    const QPointF start = middle + QPointF(-metrics.horizontalAdvance(caption) / 2, metrics.capHeight() / 2);
    if (touch.enabled && colors.top.lightness() > 100) { // light letters on a light plate
        painter.setPen(QColor(0, 0, 0, 150));
        painter.drawText(start + QPointF(0, 1), caption);
    }
    painter.setPen(touch.enabled ? colors.caption : kDisabledCaption);
    painter.drawText(start, caption);
    if (touch.focused) {
        // Dark within light: seen on a lit plate of the same green as well.
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(16, 16, 16), 3));
        painter.drawRoundedRect(layout.plate.adjusted(1, 1, -1, -1), layout.radius, layout.radius);
        painter.setPen(QPen(FocusMark::color(), 1.5));
        painter.drawRoundedRect(layout.plate, layout.radius, layout.radius);
    }
}

} // namespace quillon
