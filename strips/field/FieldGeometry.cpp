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

FieldGeometry fieldGeometry(QSize field, float titleRatio)
{
    FieldGeometry geometry;
    const int title = static_cast<int>(static_cast<float>(field.height()) / 100.0F * titleRatio);
    geometry.title = {0, 0, field.width(), title};
    geometry.body = {0, title, field.width(), std::max(field.height() - title, 0)};
    const float unit = static_cast<float>(geometry.body.height()) / 100.0F;
    geometry.barUnit = unit * 3.0F;
    geometry.top = static_cast<int>(unit * 0.6F);
    geometry.start = static_cast<int>(unit * 2.0F);
    geometry.gap = static_cast<int>(unit * 1.2F);
    geometry.stripHeight = geometry.body.height() - 2 * geometry.top - static_cast<int>(geometry.barUnit);
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
    int x = geometry.start;
    for (const QSize& minimum : minimumSizes) {
        const QSize size = stripSize(geometry.stripHeight, minimum);
        places.push_back({QPoint(x, geometry.top), size});
        x += size.width() + geometry.gap;
    }
    return places;
}

QString scrollBarStyle(float barUnit, bool scrollable)
{
    const auto pixels = [barUnit](float share) { return QString::number(static_cast<int>(barUnit * share)); };
    const QString handle =
        scrollable ? u"background-color: rgb(161, 161, 161);   min-width: 20px;"_s : u"background-color: transparent;"_s;
    return u"QScrollBar:horizontal {   height: %1px;   background-color: transparent;   border-radius: %2px;   margin-bottom: "
           u"%3px;}"
           "QScrollBar::handle:horizontal {   %4   border-radius: %2px;}"
           "QScrollBar::add-line:horizontal, QScrollBar::sub-line:horizontal {   width: 0px;}"
           "QScrollBar::add-page:horizontal, QScrollBar::sub-page:horizontal {   background-color: transparent;}"_s.arg(
               pixels(0.7F), pixels(0.2F), pixels(0.25F), handle);
}

void paintField(QPainter& painter, const FieldGeometry& geometry, int contentWidth, int scroll)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(geometry.title.united(geometry.body), kBackground);
    // The frame goes with the strips, so that its ends tell where the row begins and ends.
    const int width = std::max(contentWidth, geometry.body.width());
    const QRectF frame(-scroll, geometry.body.top(), width, geometry.body.height());
    const qreal radius = geometry.gap;
    painter.setPen(kFrame);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace quillon
