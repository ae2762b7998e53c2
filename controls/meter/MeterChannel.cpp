#include "controls/meter/MeterChannel.h"

#include <algorithm>
#include <utility>

namespace quillon
{

namespace
{

constexpr int kClipCode = 1;

/// Of whole dB, where the code for clip is a level like others.
MeterReading reading(long long db, int floorDb)
{
    return {int(std::clamp<long long>(db, floorDb, 0)), db >= kClipCode};
}

} // namespace

std::optional<MeterReading> decodeMeter(int tenthsOfDb, int floorDb)
{
    if (tenthsOfDb > kClipCode)
        return std::nullopt;
    if (tenthsOfDb == kClipCode)
        return MeterReading{0, true};
    const int tenths = std::max(tenthsOfDb, floorDb * 10);
    return MeterReading{(tenths - 9) / 10, false}; // rounds down: tenths is never positive
}

std::optional<GainedReading> decodeGained(int tenthsOfDb, int gainDb, int floorDb)
{
    if (tenthsOfDb > kClipCode)
        return std::nullopt;
    const long long origin = tenthsOfDb == kClipCode ? kClipCode : (tenthsOfDb - 9LL) / 10; // not clamped: a gain may lift it
    return GainedReading{reading(origin, floorDb), reading(origin + gainDb, floorDb)};
}

MeterChannel::Result MeterChannel::feed(MeterReading reading, bool holding)
{
    Result result;
    if (reading.clipped) {
        result.startClip = true;
        if (!std::exchange(mClip, true))
            result.changed |= Clip;
    }
    const int level = reading.db < mLevel ? std::max(mLevel - kFallDb, mFloor) : reading.db;
    if (std::exchange(mLevel, level) != level)
        result.changed |= Level;

    int hold = mHold;
    if (mLevel > mHold) {
        hold = mLevel;
        result.startHold = true;
    } else if (!holding && mHoldFollows) {
        hold = mLevel;
    }
    if (std::exchange(mHold, hold) != hold)
        result.changed |= Hold;
    return result;
}

unsigned MeterChannel::endHold()
{
    return std::exchange(mHold, mLevel) != mLevel ? Hold : Nothing;
}

unsigned MeterChannel::endClip()
{
    return std::exchange(mClip, false) ? Clip : Nothing;
}

unsigned MeterChannel::decay()
{
    const int level = std::max(mLevel - kFallDb, mFloor);
    return std::exchange(mLevel, level) != level ? Level : Nothing;
}

} // namespace quillon
