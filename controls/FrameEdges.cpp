#include "controls/FrameEdges.h"

#include <algorithm>
#include <cmath>

namespace quillon
{

int edgesAt(QPointF position, QSize size, int margin)
{
    return (position.x() < margin ? LeftEdge : 0) | (position.x() > size.width() - margin ? RightEdge : 0) |
           (position.y() < margin ? TopEdge : 0) | (position.y() > size.height() - margin ? BottomEdge : 0);
}

std::optional<Qt::CursorShape> cursorFor(int edges)
{
    switch (edges) {
    case LeftEdge | TopEdge:
    case RightEdge | BottomEdge:
        return Qt::SizeFDiagCursor;
    case RightEdge | TopEdge:
    case LeftEdge | BottomEdge:
        return Qt::SizeBDiagCursor;
    case LeftEdge:
    case RightEdge:
        return Qt::SizeHorCursor;
    case TopEdge:
    case BottomEdge:
        return Qt::SizeVerCursor;
    default:
        return std::nullopt;
    }
}

QRect withEdgesMoved(QRect rect, int edges, QPointF delta, QSize least)
{
    const int dx = int(std::round(delta.x()));
    const int dy = int(std::round(delta.y()));
    if (edges & LeftEdge) {
        rect.setLeft(std::min(rect.left() + dx, rect.right() + 1 - least.width()));
    }
    if (edges & RightEdge) {
        rect.setRight(rect.right() + dx);
    }
    if (edges & TopEdge) {
        rect.setTop(std::min(rect.top() + dy, rect.bottom() + 1 - least.height()));
    }
    if (edges & BottomEdge) {
        rect.setBottom(rect.bottom() + dy);
    }
    rect.setSize(rect.size().expandedTo(least));
    return rect;
}
} // namespace quillon
