#pragma once

#include <array>
#include <cstddef>

namespace quillon
{

/// A robust peak of level readings: the five loudest are thrown away as transients, the mean of the next five counts.
/// Only the ten loudest readings are kept, so memory and cost per reading are constant however long a measurement lasts.
class PeakEstimate
{
public:
    void clear() { mCount = 0; }
    /// A reading in dB, in any order. What is no finite number is dropped.
    void add(float levelDb);
    /// Ten readings have come.
    bool isValid() const { return mCount == kKept; }
    /// The estimate in dB; 0 while there are fewer than ten readings.
    float levelDb() const;

private:
    static constexpr std::size_t kSkipped = 5;
    static constexpr std::size_t kAveraged = 5;
    static constexpr std::size_t kKept = kSkipped + kAveraged;

    std::array<float, kKept> mLoudest{}; // loudest first
    std::size_t mCount = 0;
};

} // namespace quillon
