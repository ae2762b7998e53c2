#pragma once

#include "controls/meter/MeterFaces.h"

/// Level meter of one channel whose peak number comes down only at the end of its hold. Down to -60 dB.
class VolumeMeterS1M6 : public quillon::MonoMeter
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M6(QWidget* parent = nullptr) : MonoMeter(quillon::kMeterS1M6, parent) {}

    using quillon::MonoMeter::setHeightRatio;
    using quillon::MonoMeter::setWidthRatio;
    /// Without margins, and without the number.
    void setWidthRatio(int space, int meter, int scale) { setWidthRatio(0, meter, space, scale); }
    void setHeightRatio(int clip, int spaceClip, int bar, int bottom) { setHeightRatio(0, 0, clip, spaceClip, bar, bottom); }
};
