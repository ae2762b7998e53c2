#pragma once
// Where things stand in a field, as a function of its size. All conversions truncate.

#include <QList>
#include <QRect>
#include <QSize>

class QPainter;

namespace quillon
{

/// Share of the title row in the height of a field, in percent.
inline constexpr float kFieldTitleRatio = 5.3F;

struct FieldGeometry {
    Qt::Orientation orientation = Qt::Horizontal; // the way in which the strips follow each other
    QRect title;
    QRect body;
    int top = 0;         // of the strips, within the body; their left edge in a column
    int start = 0;       // of the first strip, and the room behind the last one
    int gap = 0;         // between strips
    int stripHeight = 0; // across the row; leaves room for the scroll bar
    float barUnit = 0;   // measure of the scroll bar
};

/// A field without a title has the ratio 0.
FieldGeometry fieldGeometry(QSize field, float titleRatio, Qt::Orientation orientation = Qt::Horizontal);

/// Width and height as they are along and across the row; and back.
inline QSize alongAcross(Qt::Orientation orientation, QSize size)
{
    return orientation == Qt::Horizontal ? size : size.transposed();
}

/// Size of a strip in the row, along and across: it grows with the row and keeps its ratio, and never falls below its smallest
/// size.
QSize stripSize(int height, QSize minimum);

/// Places in the row, left to right or downward, of strips with these smallest sizes.
QList<QRect> placeStrips(const FieldGeometry& geometry, const QList<QSize>& minimumSizes);

/// Style of the scroll bar; its handle shows only when there is something to scroll.
QString scrollBarStyle(const FieldGeometry& geometry, bool scrollable);

/// Background, title row and the frame round the strips. contentLength: of the row; scroll: how far it was moved to its
/// start.
void paintField(QPainter& painter, const FieldGeometry& geometry, int contentLength, int scroll);

} // namespace quillon
