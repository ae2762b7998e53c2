#pragma once
// Where the items of a bar stand, as a function of its size.

#include "console/head/FieldHead.h"

namespace quillon
{

/// Places of the items, whole columns from top to bottom. The selector takes what room there is, up to a limit; when there is not
/// enough for all, all columns become narrower.
std::vector<QRect> headColumns(QSize bar, std::span<const HeadItem> items);

/// The parts of a column: the caption above, the box below it, and the square of a button.
QRect captionPlace(const QRect& column);
QRect boxPlace(const QRect& column);
QRect buttonPlace(const QRect& column);

} // namespace quillon
