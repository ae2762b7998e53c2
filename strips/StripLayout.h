#pragma once
// Where the children of a strip stand: fractions of the strip, as data.

#include <QRect>
#include <QSize>

namespace quillon
{

/// Height of the name row at the top of every strip, in percent of the strip's height.
inline constexpr float kTitlePercent = 8.0F;

int titleHeight(QSize strip);

enum class From : bool { Top, NameRow };

/// A child's place in percent of the strip's width and height. y counts from the top of the strip or from the end of the name row.
/// A height of 0 keeps the ratio of the child's minimum size.
struct Place {
    float x = 0;
    float y = 0;
    float width = 0;
    float height = 0;
    From from = From::Top;
};

/// The place in pixels; conversions truncate. minimum: the child's minimum size.
QRect placeRect(const Place& place, QSize strip, QSize minimum);

/// Point size of a name, from the one that fits its row: smaller rows keep more of it.
int namePointSize(int fitted);

} // namespace quillon
