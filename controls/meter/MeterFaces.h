#pragma once
// The forms of meter that two members share, which differ by their shape alone. All motion comes from the values that a meter is
// fed; between them it does nothing, or decays where it is told to. GUI thread.

#include "controls/meter/MeterView.h"

#include <QWidget>

namespace quillon
{

/// One channel with a peak number.
class MonoMeter : public QWidget, public MeterFace
{
    Q_OBJECT
public:
    /// Tenths of a dB, down to the floor of the member; less counts as the floor, 1 is clip, and more than 1 is ignored.
    void setVolumeMeter(int tenthsOfDb) { mView.feed(0, tenthsOfDb); }

    /// Shares of the width and of the height in percent; below 0 counts as 0. The layout is redone at once.
    void setWidthRatio(int margin, int meter, int space, int scale) { mView.setWidthRatios({margin, meter, space, scale}); }
    void setHeightRatio(int text, int spaceText, int clip, int spaceClip, int bar, int bottom)
    {
        mView.setHeightRatios({text, spaceText, clip, spaceClip, bar, bottom});
    }

    using MeterFace::setFont;

protected:
    MonoMeter(const MeterShape& shape, QWidget* parent);

    bool event(QEvent* event) override { return mView.handle(event) || QWidget::event(event); }

private slots:
    void in_timerText_timeout() { mView.endHold(0); }
    void in_timerClip_timeout() { mView.endClip(0); }
    void in_mTimerMeter_timeout() { mView.decay(0); }
};

/// One channel, as measured and with the gain of its strip.
class TrackingMeter : public QWidget, public MeterFace
{
    Q_OBJECT
public:
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

    using MeterFace::setFont;
    /// Bars are left out with their lamps; their places stay free.
    void setScaleLabelsHidden(bool hidden) { mView.setHidden(ScaleLabels, hidden); }
    void setOriginHidden(bool hidden) { mView.setHidden(OriginBars, hidden); }
    void setGainedHidden(bool hidden) { mView.setHidden(GainedBars, hidden); }

protected:
    TrackingMeter(const MeterShape& shape, QWidget* parent);

    bool event(QEvent* event) override { return mView.handle(event) || QWidget::event(event); }

private slots:
    void in_timerClipOrigin_timeout() { mView.endClip(0); }
    void in_timerClipGained_timeout() { mView.endClip(1); }
    void in_mTimerMeter_timeout() { mView.decay(0); }
};

/// A stereo pair without numbers.
class PairMeter : public QWidget, public MeterFace
{
    Q_OBJECT
public:
    /// Tenths of a dB, down to the floor of the member; less counts as the floor, 1 is clip, and more than 1 is ignored.
    void setVolumeMeterLeft(int tenthsOfDb) { mView.feed(0, tenthsOfDb); }
    void setVolumeMeterRight(int tenthsOfDb) { mView.feed(1, tenthsOfDb); }

    /// Shares of the width and of the height in percent; below 0 counts as 0. The layout is redone at once.
    void setWidthRatio(int space, int bar, int scale) { mView.setWidthRatios({space, bar, scale}); }
    void setHeightRatio(int clip, int spaceClip, int bar, int bottom)
    {
        mView.setHeightRatios({0, 0, clip, spaceClip, bar, bottom});
    }

    using MeterFace::setFont;

protected:
    PairMeter(const MeterShape& shape, QWidget* parent);

    bool event(QEvent* event) override { return mView.handle(event) || QWidget::event(event); }

private slots:
    void in_timerClipLeft_timeout() { mView.endClip(0); }
    void in_timerClipRight_timeout() { mView.endClip(1); }
    void in_mTimerMeterLeft_timeout() { mView.decay(0); }
    void in_mTimerMeterRight_timeout() { mView.decay(1); }
};

} // namespace quillon
