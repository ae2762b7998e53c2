#pragma once

#include "controls/slider/FaderFace.h"

#include <QWidget>

/// Vertical fader in dB with steps that grow as the level falls, with a read-out above it that can be typed into. Setters emit
/// nothing. GUI thread.
class VSliderS1M2 : public QWidget, public quillon::FaderFace<quillon::LadderFaderLaw>
{
    Q_OBJECT
public:
    explicit VSliderS1M2(QWidget* parent = nullptr);
    using FaderFace::setFont;
    /// Steps of 0.5 dB from threshold1 up, 1 from threshold2, 2 from min. Ignored unless they descend from max. The value is
    /// brought into the range.
    void setLadder(int max, int threshold1, int threshold2, int min);

signals:
    /// The user has changed the value, in dB.
    void valueChanged(float value);
};
