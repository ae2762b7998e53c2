#include "strips/field/FieldGeometry.h"

#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr QColor kBackground(31, 31, 31, 255);
constexpr QColor kFrame(128, 128, 128, 255);

} // namespace

FieldGeometry fieldGeometry(QSize field, float titleRatio, Qt::Orientation orientation)
{
    FieldGeometry geometry;
    geometry.orientation = orientation;
    const int title = static_cast<int>(static_cast<float>(field.height()) / 100.0F * titleRatio);
    geometry.title = {0, 0, field.width(), title};
    geometry.body = {0, title, field.width(), std::max(field.height() - title, 0)};
    const int across = alongAcross(orientation, geometry.body.size()).height();
    const float unit = static_cast<float>(across) / 100.0F;
    geometry.barUnit = unit * 3.0F;
    geometry.top = static_cast<int>(unit * 0.6F);
    geometry.start = static_cast<int>(unit * 2.0F);
    geometry.gap = static_cast<int>(unit * 1.2F);
    geometry.stripHeight = across - 2 * geometry.top - static_cast<int>(geometry.barUnit);
    return geometry;
}

QSize stripSize(int height, QSize minimum)
{
    if (minimum.height() <= 0) {
        return {minimum.width(), std::max(height, 0)};
    }
    const int used = std::max(height, minimum.height());
    const float scale = static_cast<float>(used) / static_cast<float>(minimum.height());
    return {static_cast<int>(static_cast<float>(minimum.width()) * scale), used};
}

QList<QRect> placeStrips(const FieldGeometry& geometry, const QList<QSize>& minimumSizes)
{
    QList<QRect> places;
    places.reserve(minimumSizes.size());
    int at = geometry.start;
    for (const QSize& minimum : minimumSizes) {
        const QSize size = stripSize(geometry.stripHeight, alongAcross(geometry.orientation, minimum));
        const QPoint corner = geometry.orientation == Qt::Horizontal ? QPoint(at, geometry.top) : QPoint(geometry.top, at);
        places.push_back({corner, alongAcross(geometry.orientation, size)});
        at += size.width() + geometry.gap;
    }
    return places;
}

QString scrollBarStyle(const FieldGeometry& geometry, bool scrollable)
{
    const bool flat = geometry.orientation == Qt::Horizontal;
    const auto pixels = [&](float share) { return QString::number(static_cast<int>(geometry.barUnit * share)); };
    const QString handle = scrollable
                               ? u"background-color: rgb(161, 161, 161);   min-%1: 20px;"_s.arg(flat ? u"width"_s : u"height"_s)
                               : u"background-color: transparent;"_s;
    const QString style = u"QScrollBar {   %5: %1px;   background-color: transparent;   border-radius: %2px;   margin-%6: %3px;}"
                          "QScrollBar::handle {   %4   border-radius: %2px;}"
                          "QScrollBar::add-line, QScrollBar::sub-line {   width: 0px;   height: 0px;}"
                          "QScrollBar::add-page, QScrollBar::sub-page {   background-color: transparent;}"_s;
    return style.arg(pixels(0.7F), pixels(0.2F), pixels(0.25F), handle, flat ? u"height"_s : u"width"_s,
                     flat ? u"bottom"_s : u"right"_s);
}

void paintField(QPainter& painter, const FieldGeometry& geometry, int contentLength, int scroll)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(geometry.title.united(geometry.body), kBackground);
    // The frame goes with the strips, so that its ends tell where the row begins and ends.
    const QSize body = alongAcross(geometry.orientation, geometry.body.size());
    const QSize size = alongAcross(geometry.orientation, {std::max(contentLength, body.width()), body.height()});
    const QPoint moved = geometry.orientation == Qt::Horizontal ? QPoint(-scroll, 0) : QPoint(0, -scroll);
    const QRectF frame(geometry.body.topLeft() + moved, size);
    const qreal radius = geometry.gap;
    painter.setPen(kFrame);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace quillon
