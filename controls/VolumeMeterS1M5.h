#pragma once

#include "controls/meter/MeterFaces.h"

/// Level meter of one channel, as measured and with the gain of its strip, the scale at the right. Down to -90 dB.
class VolumeMeterS1M5 : public quillon::TrackingMeter
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M5(QWidget* parent = nullptr) : TrackingMeter(quillon::kMeterS1M5, parent) {}
};
