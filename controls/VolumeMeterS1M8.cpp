#include "controls/VolumeMeterS1M8.h"

VolumeMeterS1M8::VolumeMeterS1M8(QWidget* parent) : QWidget(parent), MeterFace(this, quillon::kMeterS1M8)
{
    mView.connectTimers(this, {}, {&VolumeMeterS1M8::in_timerClipLeft_timeout, &VolumeMeterS1M8::in_timerClipRight_timeout},
                        {&VolumeMeterS1M8::in_mTimerMeterLeft_timeout, &VolumeMeterS1M8::in_mTimerMeterRight_timeout});
}
