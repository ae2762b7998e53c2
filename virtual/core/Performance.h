#pragma once
// What is played into the device: a built-in loop, a recording for IN1, or levels held by a script.

#include "virtual/core/Levels.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace r47
{

/// The level of a recording over time.
class WavEnvelope
{
public:
    /// Reads a RIFF WAV file (PCM of 16, 24 or 32 bit, or 32-bit float; all channels together). Returns false with a reason when
    /// it is no such file or is larger than 512 MB; the envelope then stays as it was.
    bool load(const std::string& path, std::string& reason);

    bool isEmpty() const { return mPeaks.empty(); }
    /// Peak power around a time; the recording is repeated for ever.
    double powerAt(double seconds) const;

private:
    std::vector<float> mPeaks; // highest absolute sample of each hundredth of a second
};

/// Source levels as a function of time: the same seed and the same time give the same levels.
class Performance
{
public:
    explicit Performance(std::uint64_t seed) : mSeed(seed) {}

    WavEnvelope& recording() { return mRecording; }

    /// Holds a source ("IN1", "AUX", one side as "AUXL") at a level in dB, or lets it play again without one. False: no such
    /// source.
    bool hold(const std::string& source, std::optional<double> db);

    Powers powersAt(double seconds) const;

private:
    double playedDb(int channel, double seconds) const;

    std::uint64_t mSeed;
    WavEnvelope mRecording;
    std::array<std::optional<double>, ChannelEnd> mHeld{};
};

} // namespace r47
