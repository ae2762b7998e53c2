#pragma once
// The meters of the device as laws: source levels pass through what the application has last written. No clock, no socket.
// A signal is a power (1.0 is 0 dBFS, 0.0 silence), so that mixing is adding and only what is reported needs a logarithm.

#include "virtual/core/ParameterStore.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace r47
{

/// One side of one source, numbered as the mixer numbers its crosspoints; the right side follows the left one.
enum Channel : int {
    PB12L = 1,
    PB34L = 3,
    PB56L = 5,
    PB78L = 7,
    IN1 = 9,
    IN2 = 10,
    AuxL = 11,
    OtgL = 13,
    BtL = 15,
    PB910L = 17,
    FxL = 19,
    ChannelEnd = 21
};

struct SourceName {
    std::string_view name; // "AUX"; a side is named with a letter behind it, "AUXL"
    Channel left;
    bool stereo;
};
/// The sources that have a level of their own (all but FX).
std::span<const SourceName> sources();

using Powers = std::array<double, ChannelEnd>;
using Stereo = std::array<double, 2>;

struct Levels {
    Powers source{};  // what the meter of each source shows: behind its input gain and mute
    Powers mixerIn{}; // what enters the mixes: the sources, IN1 and IN2 behind their equalizers, and FX
    std::array<Stereo, 5> mix{};
    std::array<double, 2> eqIn{}; // IN1, IN2: behind the bands, before the gain of the equalizer
    double fxIn = 0.0;
    double fxOut = 0.0;
    Stereo hpIn{};  // at the input of the headphone equalizer
    Stereo otgIn{}; // before its gain
    Stereo hpOut{}; // behind output gain and mute; never on the wire, as the console adds the gain itself
    Stereo otgOut{};
    std::array<Stereo, 4> loopback{}; // behind the loopback gains; on the wire in Mobile mode only, as the playback level
};

/// The levels of all points for these source powers, in a work mode (1 Mobile: routing fixed, 2 Live, 3 Pro: as written).
Levels computeLevels(const ParameterStore& parameters, int workMode, const Powers& sourcePowers);

struct Meter {
    std::uint16_t code;
    std::int32_t tenths; // tenths of a dB, -900 for silence, 1 for clip
};
inline constexpr std::size_t kMeterCount = 38;
/// What the device reports of these levels, in the order of reporting.
std::array<Meter, kMeterCount> readMeters(const Levels& levels, int workMode);

double powerOfDb(double db);
/// The level as it is reported: tenths of a dB, rounded, at least -900; 1 above full scale.
std::int32_t tenthsOfPower(double power);

} // namespace r47
