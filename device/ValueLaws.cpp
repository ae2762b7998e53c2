#include "device/ValueLaws.h"

#include "device/Saturate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>

using quillon::saturated;

namespace
{

/// Place of a name in a list, -1 for none. The lists are short and names mostly differ in length.
int placeOf(QStringView name, std::span<const std::u16string_view> names)
{
    const std::u16string_view text(name.utf16(), static_cast<std::size_t>(name.size()));
    const auto found = std::find(names.begin(), names.end(), text);
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

constexpr std::array<std::u16string_view, 10> kCrosspointObjects{u"Mixer_PB12",  u"Mixer_PB34", u"Mixer_PB56",  u"Mixer_PB78",
                                                                 u"Mixer_IN12",  u"Mixer_AUX",  u"Mixer_OTGIN", u"Mixer_BT",
                                                                 u"Mixer_PB910", u"Mixer_FX"};
constexpr std::array<std::u16string_view, 17> kSources{
    u"Mix A", u"Mix B",  u"Mix C",        u"Mix D",        u"Mix E",        u"IN 1",         u"IN 2",          u"IN 1+2", u"AUX",
    u"BT",    u"OTG IN", u"Playback 1/2", u"Playback 3/4", u"Playback 5/6", u"Playback 7/8", u"Playback 9/10", u"FX"};
constexpr std::array<std::u16string_view, 5> kBandParameters{u"Switch", u"Type", u"Gain", u"Freq", u"Q"};
constexpr std::array<std::u16string_view, 10> kBands{u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10"};

constexpr double kUnity = 33554432; // 2^25

} // namespace

int gainToDeviceAux(float db)
{
    if (db >= -10) {
        return saturated<int>(99 - 2 * (9 - db));
    }
    if (db >= -52) {
        return saturated<int>(61 - (-10 - db));
    }
    if (db >= -88) {
        return saturated<int>(19 - (-52 - db) * 0.5);
    }
    return 0;
}

int gainToDeviceLine(float db)
{
    if (db >= -10) {
        return saturated<int>(99 - 2 * (0 - db));
    }
    if (db >= -88) {
        return saturated<int>(79 - (-10 - db));
    }
    return 0;
}

float deviceToGainAux(int index)
{
    const auto position = static_cast<float>(index);
    if (index >= 62) {
        return (position - 62) * 0.5F - 9.5F;
    }
    if (index >= 20) {
        return position - 71;
    }
    if (index >= 1) {
        return position * 2 - 90;
    }
    return -90;
}

float deviceToGainLine(int index)
{
    const auto position = static_cast<float>(index);
    if (index >= 80) {
        return (position - 80) * 0.5F - 9.5F;
    }
    if (index >= 1) {
        return position - 89;
    }
    return -89;
}

int mixerSourceIndex(QStringView name)
{
    const bool right = name.endsWith(u'R');
    return right || name.endsWith(u'L') ? mixerSourceIndex(name.chopped(1), right) : 0;
}

int mixerSourceIndex(QStringView object, bool right)
{
    const int place = placeOf(object, kCrosspointObjects);
    return place < 0 ? 0 : 2 * place + (right ? 2 : 1);
}

int sourceIndex(QStringView name)
{
    const int place = placeOf(name, kSources);
    return place < 0 ? -1 : place + 1;
}

int eqParameterIndex(QStringView name)
{
    const bool right = name.startsWith(u'R');
    return right || name.startsWith(u'L') ? eqParameterIndex(name.sliced(1), right) : 0;
}

int eqParameterIndex(QStringView attribute, bool right)
{
    const int place = placeOf(attribute, kBandParameters);
    return place < 0 ? 0 : place + (right ? 6 : 1);
}

int eqBandBits(QStringView band)
{
    return (placeOf(band, kBands) + 1) << 8;
}

long long dbToLinear(double db, double floorDb)
{
    if (floorDb >= db) {
        return 0;
    }
    return saturated<long long>(std::pow(10, db / 20) * kUnity);
}

double linearToDb(long long linear)
{
    if (linear > 0) {
        return 20 * std::log10(static_cast<double>(linear) * (1 / kUnity));
    }
    return -90;
}
