#pragma once

#include "controls/slider/FaderFace.h"

#include <QWidget>

/// Vertical fader in whole dB, with a read-out above it that can be typed into. Setters emit nothing. GUI thread.
class VSliderS1M1 : public QWidget, public quillon::WholeFaderFace
{
    Q_OBJECT
public:
    explicit VSliderS1M1(QWidget* parent = nullptr);
    using FaderFace::setFont;

signals:
    /// The user has changed the value, in dB.
    void valueChanged(int value);
};
