#pragma once

#include "controls/meter/MeterView.h"

#include <QWidget>

/// Level meter of a stereo pair: two bars with their peak numbers and clip lamps, the scale between them. All motion comes from the
/// values that it is fed; between them it does nothing. GUI thread.
class VolumeMeterS1M2 : public QWidget, public quillon::MeterFace
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M2(QWidget* parent = nullptr);

    /// Tenths of a dB, -600 to 0; less counts as -600, 1 is clip, and more than 1 is ignored.
    void setVolumeMeterLeft(int tenthsOfDb) { mView.feed(0, tenthsOfDb); }
    void setVolumeMeterRight(int tenthsOfDb) { mView.feed(1, tenthsOfDb); }

    /// Shares of the width and of the height in percent; below 0 counts as 0. The layout is redone at once.
    void setWidthRatio(int margin, int space, int meter, int scale) { mView.setWidthRatios({margin, space, meter, scale}); }
    void setHeightRatio(int text, int spaceText, int clip, int spaceClip, int bar, int bottom)
    {
        mView.setHeightRatios({text, spaceText, clip, spaceClip, bar, bottom});
    }

    using quillon::MeterFace::setFont;

protected:
    bool event(QEvent* event) override { return mView.handle(event) || QWidget::event(event); }

private slots:
    void in_timerTextLeft_timeout() { mView.endHold(0); }
    void in_timerTextRight_timeout() { mView.endHold(1); }
    void in_timerClipLeft_timeout() { mView.endClip(0); }
    void in_timerClipRight_timeout() { mView.endClip(1); }
    void in_mTimerMeterLeft_timeout() { mView.decay(0); }
    void in_mTimerMeterRight_timeout() { mView.decay(1); }
};
