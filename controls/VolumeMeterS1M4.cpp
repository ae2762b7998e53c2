#include "controls/VolumeMeterS1M4.h"

VolumeMeterS1M4::VolumeMeterS1M4(QWidget* parent) : QWidget(parent), MeterFace(this, quillon::kMeterS1M4)
{
    mView.connectTimers(this, {}, {&VolumeMeterS1M4::in_timerClipOrigin_timeout, &VolumeMeterS1M4::in_timerClipGained_timeout},
                        {&VolumeMeterS1M4::in_mTimerMeter_timeout});
}
