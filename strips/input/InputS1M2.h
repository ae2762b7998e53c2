#pragma once

#include "strips/input/InputBase.h"

class DialS1M5;

/// IN 2: phantom power, auto gain, equalizer and ducking, balance.
class InputS1M2 final : public InputBase
{
    Q_OBJECT
public:
    explicit InputS1M2(const QString& objectName, QWidget* parent = nullptr);

    /// Ends of the gain dial in dB, which moves by whole dB. A minimum above the maximum is ignored.
    InputS1M2& setGainRange(float minimumDb, float maximumDb);

private:
    DialS1M5* mGainDial;
};
