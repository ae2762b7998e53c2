#pragma once

#include "strips/input/GainedInput.h"

/// AUX, BT and OTG IN: a stereo level, gain, solo and mute.
class InputS1M3 final : public StereoInput
{
    Q_OBJECT
public:
    explicit InputS1M3(const QString& objectName, QWidget* parent = nullptr);
};
