#include "controls/meter/MeterFaces.h"

namespace quillon
{

MonoMeter::MonoMeter(const MeterShape& shape, QWidget* parent) : QWidget(parent), MeterFace(this, shape)
{
    mView.connectTimers(this, {&MonoMeter::in_timerText_timeout}, {&MonoMeter::in_timerClip_timeout},
                        {&MonoMeter::in_mTimerMeter_timeout});
}

TrackingMeter::TrackingMeter(const MeterShape& shape, QWidget* parent) : QWidget(parent), MeterFace(this, shape)
{
    mView.connectTimers(this, {}, {&TrackingMeter::in_timerClipOrigin_timeout, &TrackingMeter::in_timerClipGained_timeout},
                        {&TrackingMeter::in_mTimerMeter_timeout});
}

PairMeter::PairMeter(const MeterShape& shape, QWidget* parent) : QWidget(parent), MeterFace(this, shape)
{
    mView.connectTimers(this, {}, {&PairMeter::in_timerClipLeft_timeout, &PairMeter::in_timerClipRight_timeout},
                        {&PairMeter::in_mTimerMeterLeft_timeout, &PairMeter::in_mTimerMeterRight_timeout});
}

} // namespace quillon
