#pragma once
// What the audio driver knows of the device: rate, buffer size, safe mode, and a firmware download that is played in time.

#include <cstdint>
#include <optional>
#include <span>

namespace r47
{

class AudioDriver
{
public:
    static std::span<const std::uint32_t> rates();
    /// Sizes at the current rate, ascending; twice or four times as large at twice or four times the rate.
    std::span<const std::uint32_t> bufferSizes() const;

    std::uint32_t rate() const { return mRate; }
    std::uint32_t bufferSize() const { return mBufferSize; }
    bool safeMode() const { return mSafeMode; }

    /// Changes the rate; the buffer keeps its time, so its size follows. False for a rate not in the list.
    bool setRate(std::uint32_t rate);
    /// False for a size not in the list.
    bool setBufferSize(std::uint32_t size);
    void setSafeMode(bool on) { mSafeMode = on; }

private:
    std::uint32_t mRate = 48000;
    std::uint32_t mBufferSize = 256;
    bool mSafeMode = true;
};

/// The firmware download. Times are those of nowNs().
class Download
{
public:
    enum State : std::uint32_t { Idle = 0, Running = 2, Complete = 3, Failed = 6 };
    struct Status {
        State state;
        std::uint32_t done;
        std::uint32_t total;
    };

    // How the next download goes.
    double seconds = 3.0;
    std::optional<double> failAtPercent;  // ends in Failed there
    std::optional<double> stickAtPercent; // never comes further
    bool refused = false;                 // does not start

    bool start(std::uint32_t bytes, std::uint64_t nowNs);
    Status status(std::uint64_t nowNs) const;
    /// Ends it; true when all bytes had gone down.
    bool end(std::uint64_t nowNs);

private:
    bool mStarted = false;
    std::uint32_t mTotal = 0;
    std::uint64_t mStartNs = 0;
};

} // namespace r47
