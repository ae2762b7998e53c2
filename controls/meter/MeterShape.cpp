#include "controls/meter/MeterShape.h"

#include <algorithm>
#include <cmath>

namespace quillon
{

namespace
{

using enum MeterColumn::Kind;

constexpr std::array kMarks60 = {MeterMark{u"0", 0},    MeterMark{u"-6", 6},   MeterMark{u"-12", 12},
                                 MeterMark{u"-24", 24}, MeterMark{u"-36", 36}, MeterMark{u"-60", 60}};
constexpr std::array kMarks90 = {MeterMark{u"0", 0},    MeterMark{u"-6", 6},   MeterMark{u"-12", 12}, MeterMark{u"-24", 24},
                                 MeterMark{u"-36", 36}, MeterMark{u"-48", 48}, MeterMark{u"-60", 60}, MeterMark{u"-∞", 90}};
/// The upright scale mirrored. The bar beside it is linear from the left, and meets it only at the ends.
constexpr std::array kMarksAcross = {MeterMark{u"-60", 0},  MeterMark{u"-36", 6}, MeterMark{u"-24", 12},
                                     MeterMark{u"-12", 24}, MeterMark{u"-6", 36}, MeterMark{u"0", 60}};

constexpr std::array kOneBar = {MeterColumn{Bar, 1}, MeterColumn{Space, 2}, MeterColumn{Scale, 3}};
constexpr std::array kTwoBars = {MeterColumn{Bar, 2, 0}, MeterColumn{Space, 1}, MeterColumn{Scale, 3}, MeterColumn{Space, 1},
                                 MeterColumn{Bar, 2, 1}};
constexpr std::array kTwoBarsNoMargin = {MeterColumn{Bar, 1, 0}, MeterColumn{Space, 0}, MeterColumn{Scale, 2},
                                         MeterColumn{Space, 0}, MeterColumn{Bar, 1, 1}};
constexpr std::array kPairRight = {MeterColumn{Scale, 0}, MeterColumn{Space, 1}, MeterColumn{Bar, 2, 0}, MeterColumn{Space, 3},
                                   MeterColumn{Bar, 4, 1}};
constexpr std::array kPairLeft = {MeterColumn{Bar, 4, 1}, MeterColumn{Space, 3}, MeterColumn{Bar, 2, 0}, MeterColumn{Space, 1},
                                  MeterColumn{Scale, 0}};
constexpr std::array kTwoPairs = {MeterColumn{Bar, 2, 0}, MeterColumn{Space, 0}, MeterColumn{Bar, 3, 1},
                                  MeterColumn{Space, 1},  MeterColumn{Scale, 4}, MeterColumn{Space, 1},
                                  MeterColumn{Bar, 3, 3}, MeterColumn{Space, 0}, MeterColumn{Bar, 2, 2}};

constexpr std::array kStops60 = {0.0, 0.1, 0.2, 1.0};
constexpr std::array kStops90 = {0.0, 0.0666, 0.1333, 1.0};
constexpr std::array kStopsAcross = {0.0, 0.15, 0.3, 1.0};

constexpr std::array kRowsWithText = {10, 2, 2, 1, 83, 2};
constexpr std::array kRows = {0, 0, 3, 2, 93, 2};

/// The sides of the bars on which the scale follows, across spaces only.
void findScaleSides(MeterLayout& layout, std::span<const MeterColumn> columns)
{
    MeterLane* lastBar = nullptr;
    bool scaleBefore = false;
    for (const MeterColumn& column : columns) {
        if (column.kind == Space)
            continue;
        if (column.kind == Scale) {
            if (lastBar)
                lastBar->scaleSide = 1;
            scaleBefore = true;
            continue;
        }
        lastBar = &layout.lanes[column.lane];
        if (scaleBefore)
            lastBar->scaleSide = -1;
        scaleBefore = false;
    }
}

/// Whole pixels of a share.
auto shares(int extent)
{
    return [per = float(extent / 100.0)](int ratio) { return int(float(ratio) * per); };
}

void layoutColumns(MeterLayout& layout, QSize size, const MeterShape& shape, const MeterRatios& ratios)
{
    std::array<int, 6> rows;
    std::ranges::transform(ratios.height, rows.begin(), shares(size.height()));
    const auto [text, spaceText, clip, spaceClip, bar, bottom] = rows;
    std::array<int, 5> widths;
    std::ranges::transform(ratios.width, widths.begin(), shares(size.width()));

    int block = 0;
    for (const MeterColumn& column : shape.columns)
        block += widths[size_t(column.ratio)];
    const int margin = shape.margins > 0 ? widths[0] : 0;
    const int lampTop = (size.height() - bottom - bar - spaceClip - clip - spaceText - text) / 2 + text + spaceText;
    int x = margin + (size.width() - shape.margins * margin - block) / 2;
    for (const MeterColumn& column : shape.columns) {
        const int width = widths[size_t(column.ratio)];
        if (column.kind == Bar)
            layout.lanes[column.lane] = {QRect(x, lampTop - spaceText - text, width, text), QRect(x, lampTop, width, clip),
                                         QRect(x, lampTop + clip + spaceClip, width, bar)};
        else if (column.kind == Scale)
            layout.scale = QRect(x, 0, width, size.height());
        x += width;
    }
    findScaleSides(layout, shape.columns);
}

/// Bar and lamp in a row, the scale along the bottom. Height ratios: top, bar, space, scale, bottom; width ratios: left, lamp,
/// space, bar, right.
void layoutRow(MeterLayout& layout, QSize size, const MeterRatios& ratios)
{
    const auto width = shares(size.width());
    const auto height = shares(size.height());
    const int top = height(ratios.height[0]);
    const int thickness = height(ratios.height[1]);
    const int scale = height(ratios.height[3]);
    const int length = width(ratios.width[3]);
    MeterLane& lane = layout.lanes[0];
    lane.bar = QRect(width(ratios.width[0]), top, length, thickness);
    lane.lamp = QRect(length + 3 * width(ratios.width[2]), top, width(ratios.width[1]), thickness);
    layout.scale = QRect(lane.bar.x(), size.height() - height(ratios.height[4]) - scale, length, scale);
}

} // namespace

constinit const MeterShape kMeterS1M1 = {.floorDb = -60,
                                         .textRow = true,
                                         .lampRadius = 0.1,
                                         .barRadius = 0.1,
                                         .stops = kStops60,
                                         .sample = u"-60",
                                         .marks = kMarks60,
                                         .columns = kOneBar,
                                         .margins = 1,
                                         .ratios = {{10, 34, 10, 46}, kRowsWithText}};

constinit const MeterShape kMeterS1M2 = {.floorDb = -60,
                                         .textRow = true,
                                         .lampRadius = 1 / 3.0,
                                         .barRadius = 0.1,
                                         .stops = kStops60,
                                         .sample = u"-60",
                                         .marks = kMarks60,
                                         .columns = kTwoBars,
                                         .margins = 2,
                                         .ratios = {{5, 16, 18, 22}, kRowsWithText}};

constinit const MeterShape kMeterS1M3 = {.floorDb = -90,
                                         .lanesPerSide = 2,
                                         .lampRadius = 1 / 3.0,
                                         .barRadius = 1 / 3.0,
                                         .stops = kStops90,
                                         .sample = u"-90",
                                         .marks = kMarks90,
                                         .columns = kTwoPairs,
                                         .ratios = {{7, 8, 12, 8, 30}, kRows}};

constinit const MeterShape kMeterS1M4 = {.floorDb = -90,
                                         .lanesPerSide = 2,
                                         .lampRadius = 1 / 3.0,
                                         .barRadius = 1 / 3.0,
                                         .stops = kStops90,
                                         .sample = u"-90",
                                         .marks = kMarks90,
                                         .columns = kPairRight,
                                         .ratios = {{50, 6, 20, 12, 12}, kRows}};

constinit const MeterShape kMeterS1M5 = {.floorDb = -90,
                                         .lanesPerSide = 2,
                                         .lampRadius = 1 / 3.0,
                                         .barRadius = 1 / 3.0,
                                         .stops = kStops90,
                                         .sample = u"-90",
                                         .marks = kMarks90,
                                         .columns = kPairLeft,
                                         .ratios = {{50, 6, 20, 12, 12}, kRows}};

constinit const MeterShape kMeterS1M6 = {.floorDb = -60,
                                         .textRow = true,
                                         .holdFollows = false,
                                         .lampRadius = 1 / 3.0,
                                         .barRadius = 0.25,
                                         .stops = kStops60,
                                         .sample = u"-60",
                                         .marks = kMarks60,
                                         .columns = kOneBar,
                                         .margins = 1,
                                         .ratios = {{10, 34, 10, 46}, kRowsWithText}};

constinit const MeterShape kMeterS1M7 = {.floorDb = -90,
                                         .lampRadius = 0.1,
                                         .barRadius = 0.1,
                                         .stops = kStops90,
                                         .sample = u"-90",
                                         .marks = kMarks90,
                                         .columns = kTwoBarsNoMargin,
                                         .ratios = {{15, 20, 30}, kRows}};

constinit const MeterShape kMeterS1M8 = {.floorDb = -60,
                                         .lampRadius = 1 / 3.0,
                                         .barRadius = 1 / 3.0,
                                         .stops = kStops60,
                                         .sample = u"-60",
                                         .marks = kMarks60,
                                         .columns = kTwoBarsNoMargin,
                                         .ratios = {{15, 20, 30}, kRows}};

constinit const MeterShape kMeterS2M1 = {.floorDb = -60,
                                         .orientation = Qt::Horizontal,
                                         .lampRadius = 1 / 3.0,
                                         .barRadius = 0.25,
                                         .stops = kStopsAcross,
                                         .sample = u"-60",
                                         .marks = kMarksAcross,
                                         .ratios = {{2, 2, 1, 90, 2}, {10, 34, 10, 20, 10}}};

qsizetype MeterShape::lanes() const
{
    return std::max<qsizetype>(1, std::ranges::count(columns, Bar, &MeterColumn::kind));
}

float MeterLayout::pixelsPerDb(qsizetype lane) const
{
    const QRect& bar = lanes[lane].bar;
    return float((orientation == Qt::Vertical ? bar.height() : bar.width()) / double(-floorDb));
}

QRect MeterLayout::filled(qsizetype lane, int levelDb) const
{
    const QRect& bar = lanes[lane].bar;
    if (levelDb <= floorDb || bar.isEmpty() || !lanes[lane].shown)
        return {};
    if (orientation == Qt::Horizontal)
        return {bar.topLeft(), QSize(int(std::lround((levelDb - floorDb) * bar.width() / double(-floorDb))), bar.height())};
    return bar.adjusted(0, int(float(-levelDb) * pixelsPerDb(lane)), 0, 0);
}

MeterLayout layoutMeter(QSize size, const MeterShape& shape, const MeterRatios& ratios, unsigned hidden)
{
    MeterLayout layout;
    layout.floorDb = shape.floorDb;
    layout.orientation = shape.orientation;
    layout.lanes.resize(shape.lanes());
    if (shape.orientation == Qt::Vertical)
        layoutColumns(layout, size, shape, ratios);
    else
        layoutRow(layout, size, ratios);
    if (shape.lanesPerSide > 1)
        for (qsizetype i = 0; i < layout.lanes.size(); ++i)
            layout.lanes[i].shown = !(hidden & (i % 2 ? GainedBars : OriginBars));
    return layout;
}

} // namespace quillon
