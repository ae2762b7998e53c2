#pragma once

#include "strips/GainScale.h"
#include "strips/input/InputBase.h"

class DialS1M6;

/// AUX, BT and OTG IN: a stereo level, gain, solo and mute.
class InputS1M3 final : public InputBase
{
    Q_OBJECT
public:
    explicit InputS1M3(const QString& objectName, QWidget* parent = nullptr);

    /// The ladder of the gain dial.
    InputS1M3& setGainRange(const quillon::GainScale& scale);

private:
    DialS1M6* mGainDial;
};
