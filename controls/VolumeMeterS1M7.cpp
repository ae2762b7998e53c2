#include "controls/VolumeMeterS1M7.h"

VolumeMeterS1M7::VolumeMeterS1M7(QWidget* parent) : QWidget(parent), MeterFace(this, quillon::kMeterS1M7)
{
    mView.connectTimers(this, {}, {&VolumeMeterS1M7::in_timerClipLeft_timeout, &VolumeMeterS1M7::in_timerClipRight_timeout},
                        {&VolumeMeterS1M7::in_mTimerMeterLeft_timeout, &VolumeMeterS1M7::in_mTimerMeterRight_timeout});
}
