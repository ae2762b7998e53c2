#include "virtual/core/Levels.h"

#include "device/ValueLaws.h"

#include <algorithm>
#include <cmath>

namespace r47
{

namespace
{

constexpr double kUnity = 33554432.0;        // linear gain 1 with 25 fraction bits
constexpr std::int32_t kMicGainNominal = 26; // the microphone gain at which a source reads its own level
constexpr int kIndex0dBAux = 81;
constexpr int kIndex0dBLine = 99;
constexpr double kSilence = 1e-9; // -90 dB

constexpr SourceName kSources[] = {
    {"IN1", IN1, false},   {"IN2", IN2, false},   {"AUX", AuxL, true},   {"BT", BtL, true},     {"OTG", OtgL, true},
    {"PB12", PB12L, true}, {"PB34", PB34L, true}, {"PB56", PB56L, true}, {"PB78", PB78L, true}, {"PB910", PB910L, true},
};

struct InputRow {
    std::uint16_t block; // gain at 4, mute at 5
    int channel;
    bool stereo;
    float (*law)(int);
    int index0dB;
};
constexpr InputRow kLineInputs[] = {
    {0x2300, AuxL, true, deviceToGainAux, kIndex0dBAux},
    {0x2500, BtL, true, deviceToGainLine, kIndex0dBLine},
    {0x2700, OtgL, true, deviceToGainLine, kIndex0dBLine},
};

double linearPower(std::int32_t linear)
{
    const double gain = linear / kUnity;
    return gain * gain;
}

double indexPower(float (*law)(int), std::int32_t index)
{
    return index < 1 ? 0.0 : powerOfDb(law(std::min(index, 99)));
}

/// What passes an input can not exceed full scale again behind it.
double limited(double power)
{
    return std::min(power, 1.0);
}

void applyInputs(const ParameterStore& p, const Powers& in, Levels& out)
{
    out.source = in;
    for (int i = 0; i < 2; ++i) {
        const auto block = std::uint16_t(0x2100 + 0x100 * i);
        const double db = std::clamp(p.value(block | 4, kMicGainNominal) - kMicGainNominal, -120, 120);
        out.source[IN1 + i] *= p.value(block | 5) ? 0.0 : powerOfDb(db);
    }
    for (const InputRow& row : kLineInputs) {
        const double gain = p.value(row.block | 5) ? 0.0 : indexPower(row.law, p.value(row.block | 4, row.index0dB));
        out.source[std::size_t(row.channel)] *= gain;
        out.source[std::size_t(row.channel) + 1] *= gain;
    }
    out.mixerIn = out.source;
    for (double& power : out.mixerIn)
        power = limited(power);
}

void applyInputEqualizers(const ParameterStore& p, Levels& out)
{
    for (std::size_t i = 0; i < 2; ++i) {
        const bool on = p.value(std::uint16_t(0x9B0F + i)) != 0;
        out.eqIn[i] = out.mixerIn[IN1 + i];
        const double gain = on ? linearPower(p.value(std::uint16_t(0x9B0D + i), std::int32_t(kUnity))) : 1.0;
        out.mixerIn[IN1 + i] = limited(out.eqIn[i] * gain);
    }
}

void applyEffect(const ParameterStore& p, int workMode, Levels& out)
{
    // The sends are not shown in every mode: without a word of the application the microphones are on.
    const Powers& in = out.mixerIn;
    const double sends[] = {in[IN1], in[IN2], (in[AuxL] + in[AuxL + 1]) / 2, (in[BtL] + in[BtL + 1]) / 2,
                            (in[OtgL] + in[OtgL + 1]) / 2};
    for (std::size_t i = 0; i < std::size(sends); ++i)
        out.fxIn += sends[i] * linearPower(p.value(std::uint16_t(0x4401 + i), i < 2 ? std::int32_t(kUnity) : 0));
    const double wet = std::clamp(p.value(0x4408, 100), 0, 100) / 100.0;
    const bool bypass = p.value(0x440B, 1) == 1;
    const bool muted = workMode != 1 && p.value(0x440C) != 0;
    out.fxOut = muted ? 0.0 : limited(out.fxIn) * (bypass ? 1.0 : wet * wet);
    out.mixerIn[FxL] = out.mixerIn[FxL + 1] = out.fxOut;
}

void applyMixes(const ParameterStore& p, int workMode, Levels& out)
{
    constexpr std::uint16_t kLeftBlock[] = {0x3100, 0x3300, 0x3500, 0x3700, 0x3B00};
    for (std::size_t bus = 0; bus < 5; ++bus) {
        for (std::size_t side = 0; side < 2; ++side) {
            double sum = 0.0;
            // In Mobile mode the effect sits in the way of the microphones and has no return of its own.
            const std::size_t end = workMode == 1 ? FxL : ChannelEnd;
            for (std::size_t channel = 1; channel < end; ++channel) {
                const bool sameSide = (channel & 1) != side; // odd channels are left ones
                const auto code = std::uint16_t(kLeftBlock[bus] + 0x100 * side + channel);
                sum += out.mixerIn[channel] * (workMode == 1 ? (sameSide ? 1.0 : 0.0) : linearPower(p.value(code)));
            }
            out.mix[bus][side] = sum;
        }
    }
}

/// The signal that an audio source selection 1..17 names; silence for any other.
Stereo selected(const Levels& levels, std::int32_t selection)
{
    // 9.. are AUX, BT, OTG IN, five playbacks, FX
    constexpr int kLeft[] = {AuxL, BtL, OtgL, PB12L, PB34L, PB56L, PB78L, PB910L, FxL};
    const Powers& in = levels.mixerIn;
    if (selection >= 1 && selection <= 5)
        return levels.mix[std::size_t(selection - 1)];
    if (selection >= 6 && selection <= 8)
        return {in[selection == 7 ? IN2 : IN1], in[selection == 6 ? IN1 : IN2]};
    if (selection >= 9 && selection <= 17) {
        const auto left = std::size_t(kLeft[selection - 9]);
        return {in[left], in[left + 1]};
    }
    return {};
}

void applyLoopbacks(const ParameterStore& p, int workMode, Levels& out)
{
    constexpr std::int32_t kMobileSource[] = {1, 12, 12, 12}; // the recording is everything, the second one playback 1/2
    for (std::size_t i = 0; i < 4; ++i) {
        const auto block = std::uint16_t(0x5100 + 0x200 * i);
        const Stereo in = selected(out, workMode == 1 ? kMobileSource[i] : p.value(block | 2, -1));
        for (std::size_t side = 0; side < 2; ++side)
            out.loopback[i][side] =
                in[side] * linearPower(p.value(std::uint16_t((block | 3) + 0x100 * side), std::int32_t(kUnity)));
    }
}

void applyOutputs(const ParameterStore& p, int workMode, Levels& out)
{
    const auto source = [&](std::uint16_t code) { return selected(out, workMode == 1 ? 1 : p.value(code, 1)); };
    out.hpIn = source(0x6402);
    if (p.value(0xAB0F))
        for (double& power : out.hpIn)
            power *= powerOfDb(std::clamp(p.value(0xAB14), -120, 60));
    out.otgIn = source(0x6202);
    for (std::size_t side = 0; side < 2; ++side) {
        const auto gainOf = [&](std::uint16_t leftBlock, float (*law)(int), int index0dB) {
            const auto block = std::uint16_t(leftBlock + 0x100 * side);
            return p.value(block | 4) ? 0.0 : indexPower(law, p.value(block | 3, index0dB));
        };
        out.hpOut[side] = limited(out.hpIn[side]) * gainOf(0x6300, deviceToGainAux, kIndex0dBAux);
        out.otgOut[side] = limited(out.otgIn[side]) * gainOf(0x6100, deviceToGainLine, kIndex0dBLine);
    }
}

} // namespace

std::span<const SourceName> sources()
{
    return kSources;
}

double powerOfDb(double db)
{
    return std::pow(10.0, db / 10.0);
}

std::int32_t tenthsOfPower(double power)
{
    if (power <= kSilence)
        return -900;
    const auto tenths = std::int32_t(std::lround(100.0 * std::log10(power)));
    return tenths > 0 ? 1 : tenths;
}

Levels computeLevels(const ParameterStore& parameters, int workMode, const Powers& sourcePowers)
{
    Levels out;
    applyInputs(parameters, sourcePowers, out);
    applyInputEqualizers(parameters, out);
    applyEffect(parameters, workMode, out);
    applyMixes(parameters, workMode, out);
    applyLoopbacks(parameters, workMode, out);
    applyOutputs(parameters, workMode, out);
    return out;
}

std::array<Meter, kMeterCount> readMeters(const Levels& levels, int workMode)
{
    std::array<Meter, kMeterCount> meters{};
    std::size_t used = 0;
    const auto put = [&](std::uint16_t code, double power) { meters[used++] = {code, tenthsOfPower(power)}; };
    const auto putStereo = [&](std::uint16_t left, std::uint16_t right, const Stereo& powers) {
        put(left, powers[0]);
        put(right, powers[1]);
    };
    const auto source = [&](int left) { return Stereo{levels.source[std::size_t(left)], levels.source[std::size_t(left) + 1]}; };

    putStereo(0x2101, 0x2201, source(IN1));
    putStereo(0x2301, 0x2401, source(AuxL));
    putStereo(0x2501, 0x2601, source(BtL));
    putStereo(0x2701, 0x2801, source(OtgL));
    constexpr std::uint16_t kMixes[] = {0x3115, 0x3315, 0x3515, 0x3715, 0x3B15};
    for (std::size_t bus = 0; bus < 5; ++bus)
        putStereo(kMixes[bus], std::uint16_t(kMixes[bus] + 0x100), levels.mix[bus]);
    // Mobile mode has one playback and one recording fader, which are loopback gains; their levels take the first playback codes.
    // The console adds the gains of what it records and plays itself, so these levels are before their faders.
    putStereo(0x3901, 0x3902, workMode == 1 ? levels.loopback[1] : source(PB12L));
    putStereo(0x3903, 0x3904, workMode == 1 ? levels.mix[0] : source(PB34L));
    putStereo(0x3905, 0x3906, source(PB56L));
    putStereo(0x3907, 0x3908, source(PB78L));
    putStereo(0x3911, 0x3912, source(PB910L));
    put(0x440D, levels.fxIn);
    put(0x440E, levels.fxOut);
    putStereo(0x6101, 0x6201, levels.otgIn);
    putStereo(0x6301, 0x6401, {limited(levels.hpIn[0]), limited(levels.hpIn[1])});
    putStereo(0x9B0B, 0x9B0C, levels.eqIn);
    putStereo(0xAB0B, 0xAB0C, levels.hpIn);
    return meters;
}

} // namespace r47
