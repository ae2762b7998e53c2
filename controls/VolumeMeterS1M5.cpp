#include "controls/VolumeMeterS1M5.h"

VolumeMeterS1M5::VolumeMeterS1M5(QWidget* parent) : QWidget(parent), MeterFace(this, quillon::kMeterS1M5)
{
    mView.connectTimers(this, {}, {&VolumeMeterS1M5::in_timerClipOrigin_timeout, &VolumeMeterS1M5::in_timerClipGained_timeout},
                        {&VolumeMeterS1M5::in_mTimerMeter_timeout});
}
