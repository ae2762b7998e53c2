#pragma once

#include "strips/GainScale.h"
#include "strips/input/InputBase.h"

class DialS1M5;
class DialS1M6;

/// The input strips of a microphone: one level, a gain in whole dB.
class MicrophoneInput : public InputBase
{
    Q_OBJECT
public:
    /// Ends of the gain dial in dB, which moves by whole dB. A minimum above the maximum is ignored.
    MicrophoneInput& setGainRange(float minimumDb, float maximumDb);

protected:
    MicrophoneInput(const quillon::InputShape& shape, const QString& objectName, QWidget* parent);

    /// Adds the dial, at this place in tab order.
    void addGain();

private:
    DialS1M5* mGainDial = nullptr;
};

/// The input strips of a stereo source: a level for each side, a gain that moves by a ladder.
class StereoInput : public InputBase
{
    Q_OBJECT
public:
    /// The ladder of the gain dial.
    StereoInput& setGainRange(const quillon::GainScale& scale);

protected:
    StereoInput(const QString& objectName, QWidget* parent);

private:
    DialS1M6* mGainDial;
};
