#pragma once

#include <QList>
#include <QRect>
#include <QStringView>
#include <QVarLengthArray>
#include <array>
#include <span>

namespace quillon
{

/// One mark of a scale: its label, and how many dB from the start of the scale it stands: the top of the bar, or its left end.
struct MeterMark {
    QStringView label;
    int fromStartDb;
};

/// One column of a meter, from the left. Its width is the width ratio of that index.
struct MeterColumn {
    enum Kind { Bar, Space, Scale };
    Kind kind;
    int ratio;
    int lane = 0; // of a Bar
};

/// Shares of the widget in percent, as the columns or the row of the member name them. The height of an upright member: text,
/// spaceText, clip, spaceClip, bar, bottom; without a text the first two are 0.
struct MeterRatios {
    std::array<int, 5> width;
    std::array<int, 6> height;

    bool operator==(const MeterRatios&) const = default;
};

/// What makes one member of the family differ from the others.
struct MeterShape {
    int floorDb;
    Qt::Orientation orientation = Qt::Vertical;
    bool textRow = false;
    bool holdFollows = true;
    int lanesPerSide = 1;        // 2: the signal as measured, and with the gain of its strip; they share their decay
    double lampRadius;           // share of the lamp's height
    double barRadius;            // share of the bar's thickness
    std::array<double, 4> stops; // from the loud end
    QStringView sample;          // has to fit the scale
    std::span<const MeterMark> marks;
    std::span<const MeterColumn> columns = {}; // of an upright member
    int margins = 0; // how many margins, of width ratio 0, are kept free beside the columns; one of them lies at the left
    MeterRatios ratios;

    qsizetype lanes() const;
};

/// Parts of a meter that can be left out; their places stay free.
enum MeterPart : unsigned { ScaleLabels = 1, ScaleLines = 2, OriginBars = 4, GainedBars = 8 };

struct MeterLane {
    QRect text;
    QRect lamp;
    QRect bar;
    int scaleSide = 0; // 1: the scale is the next thing to the right of the bar, -1: to the left, 0: another bar is
    bool shown = true;
};

struct MeterLayout {
    QVarLengthArray<MeterLane, 4> lanes;
    QRect scale;
    int floorDb = -60;
    Qt::Orientation orientation = Qt::Vertical;

    /// The filled part of a bar; empty at the floor and where the bar is not shown.
    QRect filled(qsizetype lane, int levelDb) const;
    float pixelsPerDb(qsizetype lane) const;
};

/// Places the parts in a widget of that size. Shares truncate to whole pixels. hidden: bits of MeterPart.
MeterLayout layoutMeter(QSize size, const MeterShape& shape, const MeterRatios& ratios, unsigned hidden = 0);

extern const MeterShape kMeterS1M1;
extern const MeterShape kMeterS1M2;
extern const MeterShape kMeterS1M3;
extern const MeterShape kMeterS1M4;
extern const MeterShape kMeterS1M5;
extern const MeterShape kMeterS1M6;
extern const MeterShape kMeterS1M7;
extern const MeterShape kMeterS1M8;
extern const MeterShape kMeterS2M1;

} // namespace quillon
