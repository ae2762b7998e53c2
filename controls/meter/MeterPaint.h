#pragma once

#include "controls/meter/MeterShape.h"

#include <QFont>

class QPainter;

namespace quillon
{

/// What a lane shows at the moment.
struct MeterMoment {
    int level;
    int hold;
    bool clip;
};
using MeterMoments = QVarLengthArray<MeterMoment, 4>;

/// What a meter's picture is made of, apart from the levels.
struct MeterScene {
    const MeterShape* shape;
    MeterRatios ratios;
    QSize size;
    QFont font;          // fitted to the scale
    unsigned hidden = 0; // bits of MeterPart

    bool operator==(const MeterScene&) const = default;
};

/// The font at the largest size at which the scale has room for its labels.
QFont meterFont(const QFont& font, const MeterShape& shape, const MeterLayout& layout);

/// Paints the whole meter. The parts below are its steps, for painters that draw only what has changed.
void paintMeter(QPainter& painter, const MeterScene& scene, const MeterLayout& layout, const MeterMoments& moments);

void paintMeterText(QPainter& painter, const MeterScene& scene, const MeterLane& lane, int holdDb);
void paintMeterBar(QPainter& painter, const MeterScene& scene, const MeterLayout& layout, qsizetype lane, int levelDb);
void paintMeterScale(QPainter& painter, const MeterScene& scene, const MeterLayout& layout);
/// Where the number of a lane can reach; it is centred over the bar, and wider than a narrow one. Empty where there is none.
QRect meterTextArea(const MeterScene& scene, const MeterLane& lane);
QColor meterBackground();

} // namespace quillon
