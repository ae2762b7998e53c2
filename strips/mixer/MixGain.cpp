#include "strips/mixer/MixGain.h"

#include <algorithm>
#include <cmath>

namespace quillon
{

namespace
{

constexpr double kUnity = 33554432; // 2 to the power 25
constexpr int kBalanceCentre = 100;

int signedGain(float gain, bool inverted)
{
    return static_cast<int>(inverted ? -gain : gain);
}

} // namespace

qint64 linearGain(int gainDb)
{
    return gainDb <= kMixFloorDb ? 0 : static_cast<qint64>(std::pow(10.0, gainDb / 20.0) * kUnity);
}

MixGains balancedGains(const MixPair& channels)
{
    MixGains gains{};
    for (std::size_t channel = 0; channel < channels.size(); ++channel) {
        const MixChannel& from = channels[channel];
        if (from.mute) {
            continue;
        }
        const auto linear = static_cast<float>(linearGain(from.gainDb));
        gains[channel] = signedGain(linear * (100.0F - from.balance) / 100.0F, from.inverted);
        gains[2 + channel] = signedGain(linear * from.balance / 100.0F, from.inverted);
    }
    return gains;
}

MixGains straightGains(const MixChannel& both)
{
    const int gain = both.mute ? 0 : static_cast<int>(linearGain(both.gainDb));
    return {gain, 0, 0, gain};
}

MixGains sharedGains(const MixChannel& both, const std::array<int, 2>& balances)
{
    const qint64 gain = both.mute ? 0 : linearGain(both.gainDb);
    const auto share = [gain](int percent) {
        return static_cast<int>(gain * std::clamp(percent, 0, kBalanceCentre) / kBalanceCentre);
    };
    const auto [left, right] = balances;
    return {share(2 * kBalanceCentre - left), share(2 * kBalanceCentre - right), share(left), share(right)};
}

} // namespace quillon
