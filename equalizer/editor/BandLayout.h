#pragma once

#include <QRect>
#include <QSize>

#include <array>

namespace quillon
{

/// Where the parts of a column stand. Rows follow from the height alone, so that labels beside the columns can stand level.
struct BandLayout {
    static constexpr int kDials = 3;

    QRect number;
    QRect type;
    std::array<QRect, kDials> dials; // gain, frequency, Q
    QRect check;
};

BandLayout layoutBand(QSize size);

} // namespace quillon
