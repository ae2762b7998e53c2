#pragma once
// What a strip sends into a mix, as numbers of the device's matrix.

#include <QtGlobal>
#include <array>

namespace quillon
{

inline constexpr int kMixFloorDb = -90; // and below: silence
inline constexpr int kMixTopDb = 12;

/// Gain as a fixed-point number with 25 fractional bits: 33554432 is unity, 0 is silence.
qint64 linearGain(int gainDb);

/// One channel of a source on its way into a mix.
struct MixChannel {
    int gainDb = 0;
    bool mute = false;
    bool inverted = false;
    float balance = 50; // 0 to 100: the share that goes to the right side of the mix
};
using MixPair = std::array<MixChannel, 2>; // left, right

/// Left of the mix from the left channel, left from right, right from left, right from right.
using MixGains = std::array<int, 4>;

/// Each channel to both sides, as its balance has it.
MixGains balancedGains(const MixPair& channels);
/// Left to left and right to right.
MixGains straightGains(const MixChannel& both);
/// Each channel to both sides in full. Balances in 0 to 200, 100 for the centre, turn one side down.
MixGains sharedGains(const MixChannel& both, const std::array<int, 2>& balances);

} // namespace quillon
