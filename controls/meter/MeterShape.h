#pragma once

#include <QList>
#include <QRect>
#include <QStringView>
#include <QVarLengthArray>
#include <array>
#include <span>

namespace quillon
{

/// One mark of a scale: its label, and how many dB below the top of the bar it stands.
struct MeterMark {
    QStringView label;
    int belowTopDb;
};

/// One column of a meter, from the left. Its width is the width ratio of that index; each Bar is the next channel.
struct MeterColumn {
    enum Kind { Bar, Space, Scale };
    Kind kind;
    int ratio;
};

/// Shares of the widget in percent. Height: text, spaceText, clip, spaceClip, bar, bottom; members without a text row leave the
/// first two at 0. Width: as the columns of the member name them.
struct MeterRatios {
    std::array<int, 5> width;
    std::array<int, 6> height;

    bool operator==(const MeterRatios&) const = default;
};

/// What makes one member of the family differ from the others.
struct MeterShape {
    int floorDb;
    bool textRow;
    bool holdFollows;
    double lampRadius; // share of the lamp's height
    double barRadius;  // share of the bar's width
    std::array<double, 4> stops;
    QStringView sample; // has to fit the scale's width
    std::span<const MeterMark> marks;
    std::span<const MeterColumn> columns;
    int margins; // how many margins, of width ratio 0, are kept free beside the columns; one of them lies at the left
    MeterRatios ratios;
};

struct MeterLane {
    QRect text;
    QRect lamp;
    QRect bar;
    int scaleSide = 0; // 1: the scale is the next thing to the right of the bar, -1: to the left, 0: another bar is
};

struct MeterLayout {
    QVarLengthArray<MeterLane, 4> lanes;
    QRect scale;
    int floorDb = -60;

    /// The filled part of a bar; empty at the floor.
    QRect filled(qsizetype lane, int levelDb) const;
    float pixelsPerDb(qsizetype lane) const;
};

/// Places the columns and rows in a widget of that size. Shares truncate to whole pixels.
MeterLayout layoutMeter(QSize size, const MeterShape& shape, const MeterRatios& ratios);

extern const MeterShape kMeterS1M1;
extern const MeterShape kMeterS1M2;

} // namespace quillon
