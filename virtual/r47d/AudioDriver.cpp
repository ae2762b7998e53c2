#include "virtual/r47d/AudioDriver.h"

#include <algorithm>

namespace r47
{

namespace
{

constexpr std::uint32_t kRates[] = {44100, 48000, 88200, 96000, 176400, 192000};
constexpr std::uint32_t kSizes[3][7] = {
    {32, 64, 128, 256, 512, 1024, 2048}, {64, 128, 256, 512, 1024, 2048, 4096}, {128, 256, 512, 1024, 2048, 4096, 8192}};

/// 0, 1, 2 for single, double and quadruple rates.
std::size_t rateClass(std::uint32_t rate)
{
    return rate > 96000 ? 2 : rate > 48000 ? 1 : 0;
}

bool isOneOf(std::span<const std::uint32_t> list, std::uint32_t number)
{
    return std::find(list.begin(), list.end(), number) != list.end();
}

} // namespace

std::span<const std::uint32_t> AudioDriver::rates()
{
    return kRates;
}

std::span<const std::uint32_t> AudioDriver::bufferSizes() const
{
    return kSizes[rateClass(mRate)];
}

bool AudioDriver::setRate(std::uint32_t rate)
{
    if (!isOneOf(kRates, rate))
        return false;
    mBufferSize = (mBufferSize >> rateClass(mRate)) << rateClass(rate);
    mRate = rate;
    return true;
}

bool AudioDriver::setBufferSize(std::uint32_t size)
{
    if (!isOneOf(bufferSizes(), size))
        return false;
    mBufferSize = size;
    return true;
}

bool Download::start(std::uint32_t bytes, std::uint64_t nowNs)
{
    if (refused || bytes == 0)
        return false;
    mStarted = true;
    mTotal = bytes;
    mStartNs = nowNs;
    return true;
}

Download::Status Download::status(std::uint64_t nowNs) const
{
    if (!mStarted)
        return {Idle, 0, 0};
    const double passed = double(nowNs - mStartNs) / 1e9;
    double share = seconds > 0 ? std::min(passed / seconds, 1.0) : 1.0;
    State state = share < 1.0 ? Running : Complete;
    if (stickAtPercent && share >= *stickAtPercent / 100.0) {
        share = *stickAtPercent / 100.0;
        state = Running;
    }
    if (failAtPercent && share >= *failAtPercent / 100.0) {
        share = *failAtPercent / 100.0;
        state = Failed;
    }
    return {state, std::uint32_t(share * mTotal), mTotal};
}

bool Download::end(std::uint64_t nowNs)
{
    const bool complete = status(nowNs).state == Complete;
    mStarted = false;
    return complete;
}

} // namespace r47
