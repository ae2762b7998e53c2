#pragma once

#include "strips/input/GainedInput.h"

/// IN 1: input selector, phantom power, auto gain, equalizer and ducking, balance.
class InputS1M1 final : public MicrophoneInput
{
    Q_OBJECT
public:
    explicit InputS1M1(const QString& objectName, QWidget* parent = nullptr);
};
