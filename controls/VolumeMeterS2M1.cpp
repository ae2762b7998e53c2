#include "controls/VolumeMeterS2M1.h"

VolumeMeterS2M1::VolumeMeterS2M1(QWidget* parent) : QWidget(parent), MeterFace(this, quillon::kMeterS2M1)
{
    mView.connectTimers(this, {&VolumeMeterS2M1::in_timerText_timeout}, {&VolumeMeterS2M1::in_timerClip_timeout},
                        {&VolumeMeterS2M1::in_mTimerMeter_timeout});
}
