#pragma once

#include "controls/meter/MeterFaces.h"

/// Level meter of a stereo pair down to -90 dB, without numbers, the scale between the bars.
class VolumeMeterS1M7 : public quillon::PairMeter
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M7(QWidget* parent = nullptr) : PairMeter(quillon::kMeterS1M7, parent) {}
};
