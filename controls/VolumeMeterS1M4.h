#pragma once

#include "controls/meter/MeterFaces.h"

/// Level meter of one channel, as measured and with the gain of its strip, the scale at the left. Down to -90 dB.
class VolumeMeterS1M4 : public quillon::TrackingMeter
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M4(QWidget* parent = nullptr) : TrackingMeter(quillon::kMeterS1M4, parent) {}
};
