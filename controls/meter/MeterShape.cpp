#include "controls/meter/MeterShape.h"

#include <algorithm>
#include <cmath>

namespace quillon
{

namespace
{

constexpr std::array kMarks60 = {MeterMark{u"0", 0},    MeterMark{u"-6", 6},   MeterMark{u"-12", 12},
                                 MeterMark{u"-24", 24}, MeterMark{u"-36", 36}, MeterMark{u"-60", 60}};

constexpr std::array kOneBar = {MeterColumn{MeterColumn::Bar, 1}, MeterColumn{MeterColumn::Space, 2},
                                MeterColumn{MeterColumn::Scale, 3}};
constexpr std::array kTwoBars = {MeterColumn{MeterColumn::Bar, 2}, MeterColumn{MeterColumn::Space, 1},
                                 MeterColumn{MeterColumn::Scale, 3}, MeterColumn{MeterColumn::Space, 1},
                                 MeterColumn{MeterColumn::Bar, 2}};

constexpr std::array kStops60 = {0.0, 0.1, 0.2, 1.0};

/// The sides of the bars on which the scale follows, across spaces only.
void findScaleSides(MeterLayout& layout, std::span<const MeterColumn> columns)
{
    qsizetype lane = 0;
    MeterLane* lastBar = nullptr;
    bool scaleBefore = false;
    for (const MeterColumn& column : columns) {
        if (column.kind == MeterColumn::Space)
            continue;
        if (column.kind == MeterColumn::Scale) {
            if (lastBar)
                lastBar->scaleSide = 1;
            scaleBefore = true;
            continue;
        }
        lastBar = &layout.lanes[lane++];
        if (scaleBefore)
            lastBar->scaleSide = -1;
        scaleBefore = false;
    }
}

} // namespace

constinit const MeterShape kMeterS1M1 = {.floorDb = -60,
                                         .textRow = true,
                                         .holdFollows = true,
                                         .lampRadius = 0.1,
                                         .barRadius = 0.1,
                                         .stops = kStops60,
                                         .sample = u"-60",
                                         .marks = kMarks60,
                                         .columns = kOneBar,
                                         .margins = 1,
                                         .ratios = {{10, 34, 10, 46, 0}, {10, 2, 2, 1, 83, 2}}};

constinit const MeterShape kMeterS1M2 = {.floorDb = -60,
                                         .textRow = true,
                                         .holdFollows = true,
                                         .lampRadius = 1 / 3.0,
                                         .barRadius = 0.1,
                                         .stops = kStops60,
                                         .sample = u"-60",
                                         .marks = kMarks60,
                                         .columns = kTwoBars,
                                         .margins = 2,
                                         .ratios = {{5, 16, 18, 22, 0}, {10, 2, 2, 1, 83, 2}}};

float MeterLayout::pixelsPerDb(qsizetype lane) const
{
    return float(lanes[lane].bar.height() / double(-floorDb));
}

QRect MeterLayout::filled(qsizetype lane, int levelDb) const
{
    if (levelDb <= floorDb || lanes[lane].bar.isEmpty())
        return {};
    return lanes[lane].bar.adjusted(0, int(float(-levelDb) * pixelsPerDb(lane)), 0, 0);
}

MeterLayout layoutMeter(QSize size, const MeterShape& shape, const MeterRatios& ratios)
{
    const float perWidth = float(size.width() / 100.0);
    const float perHeight = float(size.height() / 100.0);
    const auto width = [&](int ratio) { return int(float(ratios.width[size_t(ratio)]) * perWidth); };
    std::array<int, 6> rows;
    std::ranges::transform(ratios.height, rows.begin(), [&](int ratio) { return int(float(ratio) * perHeight); });
    const auto [text, spaceText, clip, spaceClip, bar, bottom] = rows;

    int block = 0;
    for (const MeterColumn& column : shape.columns)
        block += width(column.ratio);
    const int margin = shape.margins > 0 ? width(0) : 0;
    const int lampTop = (size.height() - bottom - bar - spaceClip - clip - spaceText - text) / 2 + text + spaceText;

    MeterLayout layout;
    layout.floorDb = shape.floorDb;
    int x = margin + (size.width() - shape.margins * margin - block) / 2;
    for (const MeterColumn& column : shape.columns) {
        const int columnWidth = width(column.ratio);
        if (column.kind == MeterColumn::Bar)
            layout.lanes.append({QRect(x, lampTop - spaceText - text, columnWidth, text), QRect(x, lampTop, columnWidth, clip),
                                 QRect(x, lampTop + clip + spaceClip, columnWidth, bar)});
        else if (column.kind == MeterColumn::Scale)
            layout.scale = QRect(x, 0, columnWidth, size.height());
        x += columnWidth;
    }
    findScaleSides(layout, shape.columns);
    return layout;
}

} // namespace quillon
