#pragma once

#include <QPoint>
#include <QRect>
#include <Qt>

#include <optional>

namespace quillon
{
/// The edges of a window that the pointer can take hold of: bits, combinable to corners.
enum FrameEdge { LeftEdge = 1, RightEdge = 2, TopEdge = 4, BottomEdge = 8 };

/// The edges within margin of a position, in window coordinates.
int edgesAt(QPointF position, QSize size, int margin);

/// The cursor of a combination of edges; none where there is nothing to resize.
std::optional<Qt::CursorShape> cursorFor(int edges);

/// A rectangle with the named edges moved by delta, never smaller than least. The opposite edge stands still, also at the limit.
QRect withEdgesMoved(QRect rect, int edges, QPointF delta, QSize least);
} // namespace quillon
