#pragma once

#include "controls/meter/MeterView.h"

#include <QWidget>

/// Level meter of one channel, as measured and with the gain of its strip, the scale at the right. All motion comes from the values
/// that it is fed; between them it only decays where it is told to. GUI thread.
class VolumeMeterS1M5 : public QWidget, public quillon::MeterFace
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M5(QWidget* parent = nullptr);

    /// Tenths of a dB, -900 to 0; less counts as -900, 1 is clip, and more than 1 is ignored.
    /// gainDb is added for the gained bar, which clips from a sum of 1 dB on.
    void setVolumeMeter(int tenthsOfDb, int gainDb) { mView.feedGained(0, tenthsOfDb, gainDb); }
    /// One bar alone, in the same unit.
    void setVolumeMeterOrigin(int tenthsOfDb) { mView.feed(0, tenthsOfDb); }
    void setVolumeMeterGained(int tenthsOfDb) { mView.feed(1, tenthsOfDb); }
    /// Has the bars run down to the floor until the next value.
    void startDecay() { mView.startDecay(0); }

    /// Shares of the width and of the height in percent; below 0 counts as 0. The layout is redone at once.
    void setWidthRatio(int scale, int spaceOuter, int originBar, int spaceInner, int gainedBar)
    {
        mView.setWidthRatios({scale, spaceOuter, originBar, spaceInner, gainedBar});
    }
    void setHeightRatio(int clip, int spaceClip, int bar, int bottom)
    {
        mView.setHeightRatios({0, 0, clip, spaceClip, bar, bottom});
    }

    using quillon::MeterFace::setFont;
    /// Bars are left out with their lamps; their places stay free.
    void setScaleLabelsHidden(bool hidden) { mView.setHidden(quillon::ScaleLabels, hidden); }
    void setOriginHidden(bool hidden) { mView.setHidden(quillon::OriginBars, hidden); }
    void setGainedHidden(bool hidden) { mView.setHidden(quillon::GainedBars, hidden); }

protected:
    bool event(QEvent* event) override { return mView.handle(event) || QWidget::event(event); }

private slots:
    void in_timerClipOrigin_timeout() { mView.endClip(0); }
    void in_timerClipGained_timeout() { mView.endClip(1); }
    void in_mTimerMeter_timeout() { mView.decay(0); }
};
