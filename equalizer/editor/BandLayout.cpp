#include "equalizer/editor/BandLayout.h"

#include <algorithm>

namespace quillon
{

namespace
{

// Percent of the column's height, from the top.
constexpr double kNumber = 7;
constexpr double kNumberGap = 2;
constexpr double kType = 6;
constexpr double kTypeGap = 3.5;
constexpr double kDial = 23.41;
constexpr double kDialGap = 1.9;
constexpr double kCheck = 7;

constexpr double kTypeWidth = 90; // percent of the column's width

} // namespace

BandLayout layoutBand(QSize size)
{
    // Edges are rounded, not heights: what touches in percent touches in pixels.
    const auto row = [&](double from, double height) {
        const int top = qRound(size.height() * from / 100);
        return QRect(0, top, size.width(), qRound(size.height() * (from + height) / 100) - top);
    };
    BandLayout layout;
    layout.number = row(0, kNumber);
    layout.type = row(kNumber + kNumberGap, kType);
    const int margin = qRound(size.width() * (100 - kTypeWidth) / 200);
    layout.type.adjust(margin, 0, -margin, 0);
    double at = kNumber + kNumberGap + kType + kTypeGap;
    for (QRect& dial : layout.dials) {
        dial = row(at, kDial);
        at += kDial + kDialGap;
    }
    const int room = size.height() - layout.dials.back().bottom() - 1;
    const int side = std::min(qRound(size.height() * kCheck / 100), room);
    layout.check = QRect((size.width() - side) / 2, size.height() - room + (room - side) / 2, side, side);
    return layout;
}

} // namespace quillon
