#pragma once

#include "controls/ValueControl.h"
#include "controls/meter/MeterView.h"

#include <QWidget>

/// Level meter of one channel: bar, peak number, clip lamp, scale at the right. All motion comes from the values that it is
/// fed; between them it does nothing. GUI thread.
class VolumeMeterS1M1 : public QWidget, public quillon::ValueControlHost
{
    Q_OBJECT
public:
    explicit VolumeMeterS1M1(QWidget* parent = nullptr);

    /// Tenths of a dB, -600 to 0; less counts as -600, 1 is clip, and more than 1 is ignored.
    void setVolumeMeter(int tenthsOfDb);
    /// Shares of the width in percent; below 0 counts as 0. As for the height, the layout is redone at once.
    void setWidthRatio(int margin, int meter, int space, int scale);
    void setHeightRatio(int text, int spaceText, int clip, int spaceClip, int bar, int bottom);
    void setFont(const QFont& font);
    /// Leaves the tick lines of the scale out; the numbers stay.
    void setScaleLinesHidden(bool hidden);

    quillon::ValueControl& valueControl() override { return mView; }

protected:
    bool event(QEvent* event) override;

private slots:
    void in_timerText_timeout();
    void in_timerClip_timeout();
    void in_mTimerMeter_timeout();

private:
    quillon::MeterView mView;
};
