#pragma once
// What came and went: counters for each code, and the time of each received frame.

#include "virtual/core/Recorder.h"

#include <cstdint>
#include <vector>

namespace r47
{

class Traffic
{
public:
    struct Stamp {
        std::uint64_t timeNs;
        std::int32_t value;
        std::uint16_t code;
    };

    Traffic() { clear(); }

    void received(std::uint16_t code, std::int32_t value, std::uint64_t timeNs)
    {
        ++mIn;
        ++mCounts[code];
        mLast[code] = value;
        if (mStamps.size() < kMaxStamps)
            mStamps.push_back({timeNs, value, code});
        else
            mStamps[mNextStamp++ % kMaxStamps] = {timeNs, value, code};
    }
    void receivedBad() { ++mBad; }
    void sent(std::uint64_t reports) { mOut += reports; }

    /// Everything since the start or the last clear.
    std::uint64_t in() const { return mIn; }
    std::uint64_t out() const { return mOut; }
    std::uint64_t bad() const { return mBad; }
    std::uint32_t countOf(std::uint16_t code) const { return mCounts[code]; }
    /// Meaningful while countOf() is not 0.
    std::int32_t lastOf(std::uint16_t code) const { return mLast[code]; }

    /// Calls f(stamp) for each stamp that is still kept, oldest first.
    template<typename F> void forEachStamp(F f) const
    {
        for (std::size_t i = 0; i < mStamps.size(); ++i)
            f(mStamps[(mNextStamp + i) % mStamps.size()]);
    }

    void clear()
    {
        mIn = mOut = mBad = 0;
        mCounts.assign(0x10000, 0);
        mLast.assign(0x10000, 0);
        mStamps.clear();
        mNextStamp = 0;
    }

private:
    static constexpr std::size_t kMaxStamps = 1u << 20; // 16 MB at most; the oldest go first

    std::uint64_t mIn = 0;
    std::uint64_t mOut = 0;
    std::uint64_t mBad = 0;
    std::vector<std::uint32_t> mCounts;
    std::vector<std::int32_t> mLast;
    std::vector<Stamp> mStamps;
    std::size_t mNextStamp = 0;
};

} // namespace r47
