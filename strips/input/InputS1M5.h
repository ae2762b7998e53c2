#pragma once

#include "strips/input/GainedInput.h"

/// IN 2 with polarity: phantom power, auto gain and equalizer.
class InputS1M5 final : public MicrophoneInput
{
    Q_OBJECT
public:
    explicit InputS1M5(const QString& objectName, QWidget* parent = nullptr);
};
