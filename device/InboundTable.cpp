#include "device/InboundTable.h"

#include "device/HashIndex.h"
#include "device/ValueLaws.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

// clang-format off
constexpr auto kRows = std::to_array<InboundRow>({
    {0x1104, u"SettingsDevice", u"Brightness", InboundForm::Brightness},
    {0x111A, u"SettingsDevice", u"Bluetooth", InboundForm::Number},
    {0x111B, u"SettingsDevice", u"OtgDirection", InboundForm::Number},
    {0x111C, u"SettingsDevice", u"UsbCCharging", InboundForm::Charging},
    {0x111E, u"SettingsDevice", u"AutoPoweroff", InboundForm::Number},
    {0x1122, u"SettingsDevice", u"MainButtonSingle", InboundForm::Number},
    {0x1123, u"SettingsDevice", u"MainButtonDouble", InboundForm::Number},
    {0x2101, u"Input_IN1", u"Meter", InboundForm::Level},
    {0x2102, u"Input_IN1", u"MIC", InboundForm::MicType},
    {0x2103, u"Input_IN1", u"48V", InboundForm::Flag},
    {0x2104, u"Input_IN1", u"GAIN", InboundForm::Plain},
    {0x2105, u"Input_IN1", u"MUTE", InboundForm::Flag},
    {0x2106, u"Input_IN1", u"Plug", InboundForm::Absent},
    {0x2201, u"Input_IN2", u"Meter", InboundForm::Level},
    {0x2203, u"Input_IN2", u"48V", InboundForm::Flag},
    {0x2204, u"Input_IN2", u"GAIN", InboundForm::Plain},
    {0x2205, u"Input_IN2", u"MUTE", InboundForm::Flag},
    {0x2206, u"Input_IN2", u"Plug", InboundForm::Absent},
    {0x2301, u"Input_AUX", u"MeterLeft", InboundForm::Level},
    {0x2304, u"Input_AUX", u"GAIN", InboundForm::Aux},
    {0x2305, u"Input_AUX", u"MUTE", InboundForm::Flag},
    {0x2306, u"Input_AUX", u"Plug", InboundForm::Absent},
    {0x2401, u"Input_AUX", u"MeterRight", InboundForm::Level},
    {0x2501, u"Input_BT", u"MeterLeft", InboundForm::Level},
    {0x2504, u"Input_BT", u"GAIN", InboundForm::Line},
    {0x2505, u"Input_BT", u"MUTE", InboundForm::Flag},
    {0x2506, u"Input_BT", u"Plug", InboundForm::Absent},
    {0x2601, u"Input_BT", u"MeterRight", InboundForm::Level},
    {0x2701, u"Input_OTGIN", u"MeterLeft", InboundForm::Level},
    {0x2704, u"Input_OTGIN", u"GAIN", InboundForm::Line},
    {0x2705, u"Input_OTGIN", u"MUTE", InboundForm::Flag},
    {0x2706, u"Input_OTGIN", u"Plug", InboundForm::Absent},
    {0x2801, u"Input_OTGIN", u"MeterRight", InboundForm::Level},
    {0x3115, u"Mix A", u"MeterLeft", InboundForm::Level},
    {0x3215, u"Mix A", u"MeterRight", InboundForm::Level},
    {0x3315, u"Mix B", u"MeterLeft", InboundForm::Level},
    {0x3415, u"Mix B", u"MeterRight", InboundForm::Level},
    {0x3515, u"Mix C", u"MeterLeft", InboundForm::Level},
    {0x3615, u"Mix C", u"MeterRight", InboundForm::Level},
    {0x3715, u"Mix D", u"MeterLeft", InboundForm::Level},
    {0x3815, u"Mix D", u"MeterRight", InboundForm::Level},
    {0x3901, u"Playback 1/2", u"MeterLeft", InboundForm::Level},
    {0x3902, u"Playback 1/2", u"MeterRight", InboundForm::Level},
    {0x3903, u"Playback 3/4", u"MeterLeft", InboundForm::Level},
    {0x3904, u"Playback 3/4", u"MeterRight", InboundForm::Level},
    {0x3905, u"Playback 5/6", u"MeterLeft", InboundForm::Level},
    {0x3906, u"Playback 5/6", u"MeterRight", InboundForm::Level},
    {0x3907, u"Playback 7/8", u"MeterLeft", InboundForm::Level},
    {0x3908, u"Playback 7/8", u"MeterRight", InboundForm::Level},
    {0x3911, u"Playback 9/10", u"MeterLeft", InboundForm::Level},
    {0x3912, u"Playback 9/10", u"MeterRight", InboundForm::Level},
    {0x3B15, u"Mix E", u"MeterLeft", InboundForm::Level},
    {0x3C15, u"Mix E", u"MeterRight", InboundForm::Level},
    {0x4307, u"Ducking", u"DuckingSwitch", InboundForm::Flag},
    {0x4407, u"Effect", u"NoiseReductionType", InboundForm::NoiseType},
    {0x4408, u"Effect", u"DryWet", InboundForm::Plain},
    {0x440B, u"Effect", u"ReverbType", InboundForm::ReverbType},
    {0x440D, u"Effect", u"MeterIn", InboundForm::Level},
    {0x440E, u"Effect", u"MeterOut", InboundForm::Level},
    {0x6101, u"Output_OTGOUT", u"MeterLeft", InboundForm::Level},
    {0x6201, u"Output_OTGOUT", u"MeterRight", InboundForm::Level},
    {0x6203, u"Output_OTGOUT", u"GAIN", InboundForm::Line},
    {0x6204, u"Output_OTGOUT", u"MUTE", InboundForm::Flag},
    {0x6206, u"Output_OTGOUT", u"Plug", InboundForm::Absent},
    {0x6207, u"Output_OTGOUT", u"Plug", InboundForm::Absent},
    {0x6301, u"Output_HP", u"MeterLeft", InboundForm::Level},
    {0x6401, u"Output_HP", u"MeterRight", InboundForm::Level},
    {0x6403, u"Output_HP", u"GAIN", InboundForm::Aux},
    {0x6404, u"Output_HP", u"MUTE", InboundForm::Flag},
    {0x6406, u"Output_HP", u"Plug", InboundForm::Absent},
    {0x6407, u"Output_HP", u"Plug", InboundForm::Absent},
    {0x9B0B, u"EQ_IN1", u"Meter", InboundForm::Level},
    {0x9B0C, u"EQ_IN2", u"Meter", InboundForm::Level},
    {0x9B0F, u"EQ_IN1", u"Switch", InboundForm::Flag},
    {0x9B10, u"EQ_IN2", u"Switch", InboundForm::Flag},
    {0x9B12, u"EQ_IN1", u"GainOutput", InboundForm::Plain},
    {0x9B13, u"EQ_IN2", u"GainOutput", InboundForm::Plain},
    {0xAB0B, u"EQ_HP", u"MeterLeft", InboundForm::Level},
    {0xAB0C, u"EQ_HP", u"MeterRight", InboundForm::Level},
    {0xAB0F, u"EQ_HP", u"Switch", InboundForm::Flag},
    {0xAB14, u"EQ_HP", u"GainInput", InboundForm::Plain},
});
// clang-format on

static_assert(std::adjacent_find(kRows.begin(), kRows.end(), [](const auto& a, const auto& b) { return a.code >= b.code; }) ==
              kRows.end());

/// Blocks, channels and parameters count up from 1 each: a multiplication spreads them.
constexpr std::uint32_t hashCode(std::uint16_t code)
{
    return (code * 2654435769u) >> 22;
}

constexpr HashIndex<256> kIndex(kRows, [](const InboundRow& row) { return hashCode(row.code); });
static_assert(kRows.size() <= 128, "the index stays at most half full");

QString micType(std::int32_t value)
{
    switch (value) {
    case 2:
        return u"Mic35"_s;
    case 3:
        return u"MicHP"_s;
    default:
        return u"Mic1"_s;
    }
}

QString noiseType(std::int32_t value)
{
    switch (value) {
    case 15:
        return u"NC1"_s;
    case 30:
        return u"NC2"_s;
    case 45:
        return u"NC3"_s;
    default:
        return u"Bypass"_s;
    }
}

QString reverbType(std::int32_t value)
{
    switch (value) {
    case 2:
        return u"STUDIO"_s;
    case 3:
        return u"LIVE"_s;
    case 4:
        return u"HALL"_s;
    default:
        return u"Bypass"_s;
    }
}

QVariant entry(const QStringList& list, std::int64_t index)
{
    return index >= 0 && index < list.size() ? QVariant(list[index]) : QVariant();
}

} // namespace

std::span<const InboundRow> inboundRows()
{
    return kRows;
}

int inboundIndex(std::uint16_t code)
{
    return kIndex.find(hashCode(code), [code](std::size_t i) { return kRows[i].code == code; });
}

QVariant inboundValue(InboundForm form, std::int32_t value)
{
    switch (form) {
    case InboundForm::Level:
    case InboundForm::Number:
        return int{value};
    case InboundForm::Plain:
        return static_cast<float>(value);
    case InboundForm::Aux:
        return deviceToGainAux(value);
    case InboundForm::Line:
        return deviceToGainLine(value);
    case InboundForm::Flag:
        return value != 0;
    case InboundForm::Absent:
        return value == 0;
    case InboundForm::MicType:
        return micType(value);
    case InboundForm::NoiseType:
        return noiseType(value);
    case InboundForm::ReverbType:
        return reverbType(value);
    case InboundForm::Brightness:
        return entry({u"Dim"_s, u"Normal"_s, u"Bright"_s}, value);
    case InboundForm::Charging:
        return entry({u"Charge"_s, u"Discharge"_s, u"Disabled"_s}, std::int64_t{value} - 1);
    }
    return {};
}

InboundBand inboundBand(std::uint16_t code)
{
    constexpr int kBands = 10;
    constexpr std::array<std::u16string_view, 5> kFields{u"Switch", u"Type", u"Gain", u"Freq", u"Q"};
    const auto family = code >> 12;
    const int band = code >> 8 & 0xF;
    const auto field = static_cast<unsigned>((code & 0xFF) - 1);
    if ((family != 0x9 && family != 0xA) || band < 1 || band > kBands || field >= 2 * kFields.size()) {
        return {};
    }
    const bool right = field >= kFields.size();
    if (family == 0xA && right) {
        return {};
    }
    return {family == 0xA ? u"EQ_HP" : right ? u"EQ_IN2" : u"EQ_IN1", band, kFields[field % kFields.size()]};
}

QString inboundBandText(std::u16string_view attribute, std::int32_t value)
{
    if (attribute == u"Type") {
        return QString::number(std::int64_t{value} - 1);
    }
    if (attribute == u"Gain") {
        return QString::number(value / 10.0);
    }
    if (attribute == u"Q") {
        return QString::number(value / 10000.0);
    }
    return QString::number(value);
}

} // namespace quillon
