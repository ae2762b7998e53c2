#pragma once

#include "controls/meter/MeterView.h"

#include <QWidget>

/// Level meter of a stereo pair with its gain, the scale in the middle. Each side has two bars, the signal as measured and with the
/// gain of its strip. All motion comes from the values that it is fed; between them it only decays where it is told to. GUI thread.
class VolumeMeterS1M3 : public QWidget, public quillon::MeterFace
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M3(QWidget* parent = nullptr);

    /// Tenths of a dB, -900 to 0; less counts as -900, 1 is clip, and more than 1 is ignored.
    /// gainDb is added for the gained bar, which clips from a sum of 1 dB on.
    void setVolumeMeterLeft(int tenthsOfDb, int gainDb) { mView.feedGained(0, tenthsOfDb, gainDb); }
    void setVolumeMeterRight(int tenthsOfDb, int gainDb) { mView.feedGained(1, tenthsOfDb, gainDb); }
    /// Has the bars of a side run down to the floor until the next value.
    void startDecayLeft() { mView.startDecay(0); }
    void startDecayRight() { mView.startDecay(1); }

    /// Shares of the width and of the height in percent; below 0 counts as 0. The layout is redone at once.
    void setWidthRatio(int spaceOuter, int spaceInner, int originBar, int gainedBar, int scale)
    {
        mView.setWidthRatios({spaceOuter, spaceInner, originBar, gainedBar, scale});
    }
    void setHeightRatio(int clip, int spaceClip, int bar, int bottom)
    {
        mView.setHeightRatios({0, 0, clip, spaceClip, bar, bottom});
    }

    using quillon::MeterFace::setFont;

protected:
    bool event(QEvent* event) override { return mView.handle(event) || QWidget::event(event); }

private slots:
    void in_timerClipLeftOrigin_timeout() { mView.endClip(0); }
    void in_timerClipLeftGained_timeout() { mView.endClip(1); }
    void in_timerClipRightOrigin_timeout() { mView.endClip(2); }
    void in_timerClipRightGained_timeout() { mView.endClip(3); }
    void in_mTimerMeterLeft_timeout() { mView.decay(0); }
    void in_mTimerMeterRight_timeout() { mView.decay(1); }
};
