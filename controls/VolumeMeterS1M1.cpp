#include "controls/VolumeMeterS1M1.h"

VolumeMeterS1M1::VolumeMeterS1M1(QWidget* parent) : QWidget(parent), MeterFace(this, quillon::kMeterS1M1)
{
    mView.connectTimers(this, {&VolumeMeterS1M1::in_timerText_timeout}, {&VolumeMeterS1M1::in_timerClip_timeout},
                        {&VolumeMeterS1M1::in_mTimerMeter_timeout});
}
