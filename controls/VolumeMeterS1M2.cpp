#include "controls/VolumeMeterS1M2.h"

VolumeMeterS1M2::VolumeMeterS1M2(QWidget* parent) : QWidget(parent), MeterFace(this, quillon::kMeterS1M2)
{
    mView.connectTimers(this, {&VolumeMeterS1M2::in_timerTextLeft_timeout, &VolumeMeterS1M2::in_timerTextRight_timeout},
                        {&VolumeMeterS1M2::in_timerClipLeft_timeout, &VolumeMeterS1M2::in_timerClipRight_timeout},
                        {&VolumeMeterS1M2::in_mTimerMeterLeft_timeout, &VolumeMeterS1M2::in_mTimerMeterRight_timeout});
}
