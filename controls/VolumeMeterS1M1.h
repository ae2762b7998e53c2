#pragma once

#include "controls/meter/MeterFaces.h"

/// Level meter of one channel: bar, peak number, clip lamp, scale at the right. Down to -60 dB.
class VolumeMeterS1M1 : public quillon::MonoMeter
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M1(QWidget* parent = nullptr) : MonoMeter(quillon::kMeterS1M1, parent) {}
};
