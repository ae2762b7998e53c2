#pragma once

#include "controls/meter/MeterView.h"

#include <QWidget>

/// Level meter of one channel that lies: bar, clip lamp at the right, scale below. All motion comes from the values that it is fed;
/// between them it does nothing. GUI thread.
class VolumeMeterS2M1 : public QWidget, public quillon::MeterFace
{
    Q_OBJECT
public:
    explicit VolumeMeterS2M1(QWidget* parent = nullptr);

    /// Tenths of a dB, -600 to 0; less counts as -600, 1 is clip, and more than 1 is ignored.
    void setVolumeMeter(int tenthsOfDb) { mView.feed(0, tenthsOfDb); }

    /// Shares of the width and of the height in percent; below 0 counts as 0. The layout is redone at once.
    void setWidthRatio(int left, int lamp, int space, int bar, int right) { mView.setWidthRatios({left, lamp, space, bar, right}); }
    void setHeightRatio(int top, int bar, int space, int scale, int bottom)
    {
        mView.setHeightRatios({top, bar, space, scale, bottom});
    }

    using quillon::MeterFace::setFont;

protected:
    bool event(QEvent* event) override { return mView.handle(event) || QWidget::event(event); }

private slots:
    void in_timerText_timeout() { mView.endHold(0); }
    void in_timerClip_timeout() { mView.endClip(0); }
    void in_mTimerMeter_timeout() { mView.decay(0); }
};
