#pragma once

#include <QColor>
#include <QPixmap>
#include <QRect>

class QPainter;

namespace quillon
{
/// The shadow of a rectangle, ready to be stretched round any size: four corners and four edges of one small picture.
///
/// Painted instead of a QGraphicsDropShadowEffect, which renders and blurs the whole window again for every repaint of a child.
/// radius: reach of the blur to either side of the edge in pixels, above 0. ratio: of device to logical pixels.
QPixmap shadowTile(int radius, const QColor& color, qreal ratio);

/// Draws the shadow that a frame casts; the inside of the frame is left alone.
void paintShadow(QPainter& painter, const QRect& frame, const QPixmap& tile, int radius);
} // namespace quillon
