#include "controls/VolumeMeterS1M3.h"

VolumeMeterS1M3::VolumeMeterS1M3(QWidget* parent) : QWidget(parent), MeterFace(this, quillon::kMeterS1M3)
{
    mView.connectTimers(this, {},
                        {&VolumeMeterS1M3::in_timerClipLeftOrigin_timeout, &VolumeMeterS1M3::in_timerClipLeftGained_timeout,
                         &VolumeMeterS1M3::in_timerClipRightOrigin_timeout, &VolumeMeterS1M3::in_timerClipRightGained_timeout},
                        {&VolumeMeterS1M3::in_mTimerMeterLeft_timeout, &VolumeMeterS1M3::in_mTimerMeterRight_timeout});
}
