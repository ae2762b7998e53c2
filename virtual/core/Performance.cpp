#include "virtual/core/Performance.h"

#include <cmath>

namespace r47
{

namespace
{

constexpr double kLoopSeconds = 64.0;
constexpr double kPhraseSeconds = 4.0;
constexpr double kClipSecond = 30.0; // IN1 is hit too hard once in each loop

/// How one source plays. Channels of a pair share it and differ by their chance.
struct Player {
    double beatSeconds;
    double peakDb;  // level of an accent
    double decayDb; // how far a note falls until the next one
    double pauses;  // share of the phrases that are silent
};

constexpr Player kPlayers[] = {
    {0.60, -3.0, 18.0, 0.20},  // IN1: a voice close to the microphone
    {0.50, -6.0, 26.0, 0.25},  // IN2: a plucked instrument
    {1.20, -10.0, 9.0, 0.30},  // AUX: keys
    {0.45, -8.0, 6.0, 0.10},   // BT: a dense backing track
    {0.80, -14.0, 12.0, 0.40}, // OTG
    {0.40, -7.0, 8.0, 0.10},   // playbacks
    {0.55, -11.0, 14.0, 0.25}, //
    {0.70, -16.0, 16.0, 0.35}, //
    {0.90, -19.0, 20.0, 0.40}, //
    {1.00, -22.0, 10.0, 0.45}, //
};

/// A number in [0, 1) that depends on all arguments alike.
double chance(std::uint64_t seed, std::uint64_t a, std::uint64_t b)
{
    std::uint64_t x = seed ^ (a * 0x9E3779B97F4A7C15u) ^ (b * 0xC2B2AE3D27D4EB4Fu);
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9u;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBu;
    x ^= x >> 31;
    return double(x >> 11) * 0x1.0p-53;
}

const Player& playerOf(int channel)
{
    std::size_t i = 0;
    for (const SourceName& source : sources()) {
        if (channel == source.left || (source.stereo && channel == source.left + 1))
            return kPlayers[i];
        ++i;
    }
    return kPlayers[0];
}

} // namespace

bool Performance::hold(const std::string& source, std::optional<double> db)
{
    for (const SourceName& row : sources()) {
        const bool left = !row.stereo || source == row.name || source == std::string(row.name) + 'L';
        const bool right = row.stereo && (source == row.name || source == std::string(row.name) + 'R');
        if (!row.stereo && source != row.name)
            continue;
        if (left)
            mHeld[row.left] = db;
        if (right)
            mHeld[std::size_t(row.left) + 1] = db;
        if (left || right)
            return true;
    }
    return false;
}

double Performance::playedDb(int channel, double seconds) const
{
    const Player& player = playerOf(channel);
    const double inLoop = std::fmod(seconds, kLoopSeconds);
    const auto pair = std::uint64_t(&player - kPlayers);
    const auto phrase = std::uint64_t(inLoop / kPhraseSeconds);
    if (channel == IN1 && inLoop >= kClipSecond && inLoop < kClipSecond + 0.1)
        return 1.5;
    if (chance(mSeed, pair + 1, phrase) < player.pauses)
        return -90.0;
    const auto beat = std::uint64_t(inLoop / player.beatSeconds);
    const double sinceBeat = std::fmod(inLoop, player.beatSeconds) / player.beatSeconds;
    const double softer = 12.0 * chance(mSeed, pair + 101, beat);
    const double flutter = 2.0 * chance(mSeed, std::uint64_t(channel) + 201, std::uint64_t(inLoop * 20.0));
    return player.peakDb - softer - flutter - player.decayDb * sinceBeat;
}

Powers Performance::powersAt(double seconds) const
{
    Powers powers{};
    for (int channel = 1; channel < FxL; ++channel) {
        const auto i = std::size_t(channel);
        if (mHeld[i])
            powers[i] = powerOfDb(*mHeld[i]);
        else if (channel == IN1 && !mRecording.isEmpty())
            powers[i] = mRecording.powerAt(seconds);
        else
            powers[i] = powerOfDb(playedDb(channel, seconds));
    }
    return powers;
}

} // namespace r47
