#pragma once

#include "strips/input/GainedInput.h"

/// IN 1 with polarity: input selector, phantom power, auto gain and equalizer.
class InputS1M4 final : public MicrophoneInput
{
    Q_OBJECT
public:
    explicit InputS1M4(const QString& objectName, QWidget* parent = nullptr);
};
