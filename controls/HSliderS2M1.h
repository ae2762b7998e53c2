#pragma once

#include "controls/slider/FaderFace.h"

#include <QWidget>

/// Horizontal fader in whole dB, with a read-out at its end that can be typed into. Setters emit nothing. GUI thread.
class HSliderS2M1 : public QWidget, public quillon::WholeFaderFace
{
    Q_OBJECT
public:
    explicit HSliderS2M1(QWidget* parent = nullptr);
    using FaderFace::setFont;

signals:
    /// The user has changed the value, in dB.
    void valueChanged(int value);
};
