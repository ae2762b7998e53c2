#include "controls/VolumeMeterS1M6.h"

VolumeMeterS1M6::VolumeMeterS1M6(QWidget* parent) : QWidget(parent), MeterFace(this, quillon::kMeterS1M6)
{
    mView.connectTimers(this, {&VolumeMeterS1M6::in_timerText_timeout}, {&VolumeMeterS1M6::in_timerClip_timeout},
                        {&VolumeMeterS1M6::in_mTimerMeter_timeout});
}
