#pragma once

#include <optional>

namespace quillon
{

/// What one meter value of the device says: a level in whole dB, and whether the converter clipped.
struct MeterReading {
    int db;
    bool clipped;
};

/// Decodes tenths of a dB to whole dB, downward, not below floorDb. 1 is the code for clip (a level of 0); a value above 1 is
/// no level and gives nothing.
std::optional<MeterReading> decodeMeter(int tenthsOfDb, int floorDb);

struct GainedReading {
    MeterReading origin;
    MeterReading gained;
};

/// The same value as measured and after a gain in dB. A sum of 1 dB and more clips, whether or not the measured one does.
std::optional<GainedReading> decodeGained(int tenthsOfDb, int gainDb, int floorDb);

/// The law of one metered channel: level, peak number and clip latch. Knows no clock: whoever holds it runs the timers that it
/// asks for and reports their ends.
class MeterChannel
{
public:
    static constexpr int kFallDb = 4;    // per value, and per tick of the decay
    static constexpr int kHoldMs = 2000; // the number stays on a peak
    static constexpr int kClipMs = 5000; // the lamp stays lit
    static constexpr int kDecayMs = 55;

    enum Change : unsigned { Nothing = 0, Level = 1, Hold = 2, Clip = 4 };

    struct Result {
        unsigned changed = Nothing; // bits of Change: what has to be painted anew
        bool startHold = false;
        bool startClip = false;
    };

    /// holdFollows false: the number comes down only at the end of a hold.
    explicit constexpr MeterChannel(int floorDb, bool holdFollows = true)
        : mFloor(floorDb), mLevel(floorDb), mHold(floorDb), mHoldFollows(holdFollows)
    {
    }

    /// Takes one value. A rise shows at once; a fall is a step of 4 dB, however small the fall. holding: the hold timer runs.
    Result feed(MeterReading reading, bool holding);
    /// The hold is over: the number goes to the bar. Returns bits of Change, as all below.
    unsigned endHold();
    unsigned endClip();
    /// One tick of the decay: 4 dB down, to the floor.
    unsigned decay();

    int floorDb() const { return mFloor; }
    int level() const { return mLevel; }
    int hold() const { return mHold; }
    bool clip() const { return mClip; }
    bool atFloor() const { return mLevel < mFloor + 1; }

private:
    int mFloor;
    int mLevel;
    int mHold;
    bool mHoldFollows;
    bool mClip = false;
};

} // namespace quillon
