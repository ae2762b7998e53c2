#pragma once

#include "controls/meter/MeterView.h"

#include <QWidget>

/// Level meter of a stereo pair down to -60 dB, without numbers, the scale between the bars. All motion comes from the values that
/// it is fed; between them it does nothing. GUI thread.
class VolumeMeterS1M8 : public QWidget, public quillon::MeterFace
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M8(QWidget* parent = nullptr);

    /// Tenths of a dB, -600 to 0; less counts as -600, 1 is clip, and more than 1 is ignored.
    void setVolumeMeterLeft(int tenthsOfDb) { mView.feed(0, tenthsOfDb); }
    void setVolumeMeterRight(int tenthsOfDb) { mView.feed(1, tenthsOfDb); }

    /// Shares of the width and of the height in percent; below 0 counts as 0. The layout is redone at once.
    void setWidthRatio(int space, int bar, int scale) { mView.setWidthRatios({space, bar, scale}); }
    void setHeightRatio(int clip, int spaceClip, int bar, int bottom)
    {
        mView.setHeightRatios({0, 0, clip, spaceClip, bar, bottom});
    }

    using quillon::MeterFace::setFont;

protected:
    bool event(QEvent* event) override { return mView.handle(event) || QWidget::event(event); }

private slots:
    void in_timerClipLeft_timeout() { mView.endClip(0); }
    void in_timerClipRight_timeout() { mView.endClip(1); }
    void in_mTimerMeterLeft_timeout() { mView.decay(0); }
    void in_mTimerMeterRight_timeout() { mView.decay(1); }
};
