#include "controls/FramelessShadow.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace quillon
{

QPixmap shadowTile(int radius, const QColor& color, qreal ratio)
{
    const int reach = std::max(1, int(std::lround(radius * ratio)));
    const int side = 4 * reach + 1;
    // A blurred corner is the product of two blurred edges.
    std::vector<double> edge(std::size_t(side), 1.0);
    const double sigma = reach / 2.5;
    for (int i = 0; i < 2 * reach; ++i) {
        const double beyond = reach - (i + 0.5);
        edge[std::size_t(i)] = 0.5 * std::erfc(beyond / (sigma * std::sqrt(2.0)));
        edge[std::size_t(side - 1 - i)] = edge[std::size_t(i)];
    }
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < side; ++x) {
            const double alpha = edge[std::size_t(x)] * edge[std::size_t(y)] * color.alphaF();
            line[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(), int(std::lround(alpha * 255))));
        }
    }
    QPixmap tile = QPixmap::fromImage(image);
    tile.setDevicePixelRatio(ratio);
    return tile;
}

void paintShadow(QPainter& painter, const QRect& frame, const QPixmap& tile, int radius)
{
    const QRectF outer = QRectF(frame).adjusted(-radius, -radius, radius, radius);
    const qreal corner = std::min({2.0 * radius, outer.width() / 2, outer.height() / 2});
    const std::array<qreal, 4> x{outer.left(), outer.left() + corner, outer.right() - corner, outer.right()};
    const std::array<qreal, 4> y{outer.top(), outer.top() + corner, outer.bottom() - corner, outer.bottom()};
    const qreal side = tile.width();
    const std::array<qreal, 4> source{0, (side - 1) / 2, (side + 1) / 2, side};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            if (row == 1 && column == 1) {
                continue;
            }
            painter.drawPixmap(
                QRectF(x[column], y[row], x[column + 1] - x[column], y[row + 1] - y[row]), tile,
                QRectF(source[column], source[row], source[column + 1] - source[column], source[row + 1] - source[row]));
        }
    }
}
} // namespace quillon
