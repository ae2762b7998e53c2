#include "console/head/HeadGeometry.h"

#include <algorithm>

namespace quillon
{

namespace
{

// Shares of the bar's height.
constexpr double kMargin = 0.28;
constexpr double kGap = 0.26;
constexpr double kCaptionTop = 0.10;
constexpr double kCaptionHeight = 0.31;
constexpr double kBoxTop = 0.43;
constexpr double kBoxHeight = 0.47;
constexpr double kButtonSide = 0.76;

struct ColumnWidth {
    double least;
    double most;
};

ColumnWidth widthOf(HeadKind kind)
{
    switch (kind) {
    case HeadKind::Logo:
        return {2.6, 2.6};
    case HeadKind::Selector:
        return {3.6, 6.0};
    case HeadKind::Choice:
        return {2.0, 2.3};
    case HeadKind::Battery:
        return {0.95, 0.95};
    default:
        return {kButtonSide, kButtonSide};
    }
}

bool isAtRight(HeadKind kind)
{
    return kind == HeadKind::Save || kind == HeadKind::Download || kind == HeadKind::Settings || kind == HeadKind::Battery;
}

QRect band(const QRect& column, double top, double height)
{
    return {column.left(), int(column.height() * top), column.width(), int(column.height() * height)};
}

} // namespace

std::vector<QRect> headColumns(QSize bar, std::span<const HeadItem> items)
{
    const double unit = bar.height();
    double least = 2 * kMargin + kGap * (double(items.size()) - 1);
    double growth = 0;
    for (const HeadItem& item : items) {
        const ColumnWidth width = widthOf(item.kind);
        least += width.least;
        growth += width.most - width.least;
    }
    const double room = bar.width() / std::max(1.0, unit);
    const double shrink = std::min(1.0, room / least);
    const double grow = growth > 0 ? std::clamp((room - least) / growth, 0.0, 1.0) : 0;

    std::vector<QRect> columns(items.size());
    const auto width = [&](const HeadItem& item) {
        const ColumnWidth range = widthOf(item.kind);
        return (range.least + (range.most - range.least) * grow) * shrink * unit;
    };
    double left = kMargin * shrink * unit;
    double right = bar.width() - left;
    for (std::size_t i = 0; i < items.size() && !isAtRight(items[i].kind); ++i) {
        columns[i] = QRect(int(left), 0, int(width(items[i])), bar.height());
        left += width(items[i]) + kGap * shrink * unit;
    }
    for (std::size_t i = items.size(); i-- > 0 && isAtRight(items[i].kind);) {
        right -= width(items[i]);
        columns[i] = QRect(int(right), 0, int(width(items[i])), bar.height());
        right -= kGap * shrink * unit;
    }
    return columns;
}

QRect captionPlace(const QRect& column)
{
    return band(column, kCaptionTop, kCaptionHeight);
}

QRect boxPlace(const QRect& column)
{
    return band(column, kBoxTop, kBoxHeight);
}

QRect buttonPlace(const QRect& column)
{
    return band(column, (1 - kButtonSide) / 2, kButtonSide);
}

} // namespace quillon
