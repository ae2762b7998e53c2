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
    QRect title;
    QRect body;
    int top = 0;         // of the strips, within the body
    int start = 0;       // x of the first strip, and the room behind the last one
    int gap = 0;         // between strips
    int stripHeight = 0; // leaves room for the scroll bar
    float barUnit = 0;   // measure of the scroll bar
};

FieldGeometry fieldGeometry(QSize field, float titleRatio);

/// Size of a strip in the row: it grows with the row and keeps its ratio, and never falls below its smallest size.
QSize stripSize(int height, QSize minimum);

/// Places in the row, left to right, of strips with these smallest sizes.
QList<QRect> placeStrips(const FieldGeometry& geometry, const QList<QSize>& minimumSizes);

/// Style of the scroll bar; its handle shows only when there is something to scroll.
QString scrollBarStyle(float barUnit, bool scrollable);

/// Background, title row and the frame round the strips. contentWidth: of the row; scroll: how far it was moved to the left.
void paintField(QPainter& painter, const FieldGeometry& geometry, int contentWidth, int scroll);

} // namespace quillon
