#pragma once

#include "controls/meter/MeterFaces.h"

/// Level meter of a stereo pair down to -60 dB, without numbers, the scale between the bars.
class VolumeMeterS1M8 : public quillon::PairMeter
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M8(QWidget* parent = nullptr) : PairMeter(quillon::kMeterS1M8, parent) {}
};
