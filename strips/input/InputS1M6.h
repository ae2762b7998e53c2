#pragma once

#include "strips/input/GainedInput.h"

/// AUX, BT and OTG IN with polarity: a stereo level, gain, solo and mute.
class InputS1M6 final : public StereoInput
{
    Q_OBJECT
public:
    explicit InputS1M6(const QString& objectName, QWidget* parent = nullptr);
};
