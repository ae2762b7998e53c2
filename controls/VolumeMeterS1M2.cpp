#include "controls/VolumeMeterS1M2.h"

namespace
{
enum Lane { Left, Right };
}

VolumeMeterS1M2::VolumeMeterS1M2(QWidget* parent) : QWidget(parent), mView(this, quillon::kMeterS1M2)
{
    connect(&mView.holdTimer(Left), &QTimer::timeout, this, &VolumeMeterS1M2::in_timerTextLeft_timeout);
    connect(&mView.holdTimer(Right), &QTimer::timeout, this, &VolumeMeterS1M2::in_timerTextRight_timeout);
    connect(&mView.clipTimer(Left), &QTimer::timeout, this, &VolumeMeterS1M2::in_timerClipLeft_timeout);
    connect(&mView.clipTimer(Right), &QTimer::timeout, this, &VolumeMeterS1M2::in_timerClipRight_timeout);
    connect(&mView.decayTimer(Left), &QTimer::timeout, this, &VolumeMeterS1M2::in_mTimerMeterLeft_timeout);
    connect(&mView.decayTimer(Right), &QTimer::timeout, this, &VolumeMeterS1M2::in_mTimerMeterRight_timeout);
}

void VolumeMeterS1M2::setVolumeMeterLeft(int tenthsOfDb)
{
    mView.feed(Left, tenthsOfDb);
}

void VolumeMeterS1M2::setVolumeMeterRight(int tenthsOfDb)
{
    mView.feed(Right, tenthsOfDb);
}

void VolumeMeterS1M2::setWidthRatio(int margin, int space, int meter, int scale)
{
    mView.setWidthRatios({margin, space, meter, scale});
}

void VolumeMeterS1M2::setHeightRatio(int text, int spaceText, int clip, int spaceClip, int bar, int bottom)
{
    mView.setHeightRatios({text, spaceText, clip, spaceClip, bar, bottom});
}

void VolumeMeterS1M2::setFont(const QFont& font)
{
    mView.setFont(font);
}

void VolumeMeterS1M2::setScaleLinesHidden(bool hidden)
{
    mView.setScaleLinesHidden(hidden);
}

bool VolumeMeterS1M2::event(QEvent* event)
{
    return mView.handle(event) || QWidget::event(event);
}

void VolumeMeterS1M2::in_timerTextLeft_timeout()
{
    mView.endHold(Left);
}

void VolumeMeterS1M2::in_timerTextRight_timeout()
{
    mView.endHold(Right);
}

void VolumeMeterS1M2::in_timerClipLeft_timeout()
{
    mView.endClip(Left);
}

void VolumeMeterS1M2::in_timerClipRight_timeout()
{
    mView.endClip(Right);
}

void VolumeMeterS1M2::in_mTimerMeterLeft_timeout()
{
    mView.decay(Left);
}

void VolumeMeterS1M2::in_mTimerMeterRight_timeout()
{
    mView.decay(Right);
}
