#pragma once

#include "strips/input/GainedInput.h"

/// IN 2: phantom power, auto gain, equalizer and ducking, balance.
class InputS1M2 final : public MicrophoneInput
{
    Q_OBJECT
public:
    explicit InputS1M2(const QString& objectName, QWidget* parent = nullptr);
};
