#include "controls/VolumeMeterS1M1.h"

VolumeMeterS1M1::VolumeMeterS1M1(QWidget* parent) : QWidget(parent), mView(this, quillon::kMeterS1M1)
{
    connect(&mView.holdTimer(0), &QTimer::timeout, this, &VolumeMeterS1M1::in_timerText_timeout);
    connect(&mView.clipTimer(0), &QTimer::timeout, this, &VolumeMeterS1M1::in_timerClip_timeout);
    connect(&mView.decayTimer(0), &QTimer::timeout, this, &VolumeMeterS1M1::in_mTimerMeter_timeout);
}

void VolumeMeterS1M1::setVolumeMeter(int tenthsOfDb)
{
    mView.feed(0, tenthsOfDb);
}

void VolumeMeterS1M1::setWidthRatio(int margin, int meter, int space, int scale)
{
    mView.setWidthRatios({margin, meter, space, scale});
}

void VolumeMeterS1M1::setHeightRatio(int text, int spaceText, int clip, int spaceClip, int bar, int bottom)
{
    mView.setHeightRatios({text, spaceText, clip, spaceClip, bar, bottom});
}

void VolumeMeterS1M1::setFont(const QFont& font)
{
    mView.setFont(font);
}

void VolumeMeterS1M1::setScaleLinesHidden(bool hidden)
{
    mView.setScaleLinesHidden(hidden);
}

bool VolumeMeterS1M1::event(QEvent* event)
{
    return mView.handle(event) || QWidget::event(event);
}

void VolumeMeterS1M1::in_timerText_timeout()
{
    mView.endHold(0);
}

void VolumeMeterS1M1::in_timerClip_timeout()
{
    mView.endClip(0);
}

void VolumeMeterS1M1::in_mTimerMeter_timeout()
{
    mView.decay(0);
}
