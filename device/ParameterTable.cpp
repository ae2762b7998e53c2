#include "device/ParameterTable.h"

#include "device/HashIndex.h"
#include "device/Saturate.h"
#include "device/ValueLaws.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace quillon
{

namespace
{

constexpr auto kMicTypes = std::to_array<Choice>({{u"Mic1", 1}, {u"Mic35", 2}, {u"MicHP", 3}});
constexpr auto kNoiseTypes = std::to_array<Choice>({{u"Bypass", 0}, {u"NC1", 15}, {u"NC2", 30}, {u"NC3", 45}});
constexpr auto kReverbTypes = std::to_array<Choice>({{u"Bypass", 1}, {u"STUDIO", 2}, {u"LIVE", 3}, {u"HALL", 4}});
constexpr auto kBrightness = std::to_array<Choice>({{u"Dim", 0}, {u"Normal", 1}, {u"Bright", 2}});
constexpr auto kCharging = std::to_array<Choice>({{u"Charge", 1}, {u"Discharge", 2}, {u"Disabled", 3}});
constexpr auto kWorkModes = std::to_array<Choice>({{u"Mobile mode", 1}, {u"Live streaming mode", 2}, {u"Pro audio mode", 3}});

// clang-format off
constexpr auto kRows = std::to_array<ParameterRow>({
    {Family::System, u"MainWindow", u"Auth", {0x1101, ValueKind::Int}},
    {Family::Head, u"WorkspaceDownload", u"Clicked", {0x1105, ValueKind::Int}},
    {Family::Input, u"Input_AUX", u"ANTI", {0x230A, ValueKind::Int}},
    {Family::Input, u"Input_AUX", u"GAIN", {0x2304, ValueKind::Wide}},
    {Family::Input, u"Input_AUX", u"MUTE", {0x2305, ValueKind::Int}},
    {Family::Input, u"Input_BT", u"ANTI", {0x250A, ValueKind::Int}},
    {Family::Input, u"Input_BT", u"GAIN", {0x2504, ValueKind::Narrow}},
    {Family::Input, u"Input_BT", u"MUTE", {0x2505, ValueKind::Int}},
    {Family::Input, u"Input_IN1", u"48V", {0x2103, ValueKind::Int}},
    {Family::Input, u"Input_IN1", u"ANTI", {0x210A, ValueKind::Int}},
    {Family::Input, u"Input_IN1", u"GAIN", {0x2104, ValueKind::Int}},
    {Family::Input, u"Input_IN1", u"MIC", {0x2102, ValueKind::Choice}, {}, kMicTypes},
    {Family::Input, u"Input_IN1", u"MUTE", {0x2105, ValueKind::Int}},
    {Family::Input, u"Input_IN2", u"48V", {0x2203, ValueKind::Int}},
    {Family::Input, u"Input_IN2", u"ANTI", {0x220A, ValueKind::Int}},
    {Family::Input, u"Input_IN2", u"GAIN", {0x2204, ValueKind::Int}},
    {Family::Input, u"Input_IN2", u"MUTE", {0x2205, ValueKind::Int}},
    {Family::Input, u"Input_OTGIN", u"ANTI", {0x270A, ValueKind::Int}},
    {Family::Input, u"Input_OTGIN", u"GAIN", {0x2704, ValueKind::Narrow}},
    {Family::Input, u"Input_OTGIN", u"MUTE", {0x2705, ValueKind::Int}},
    {Family::Loopback, u"Loopback_LB12", u"AudioSource", {0x5102, ValueKind::Source}},
    {Family::Loopback, u"Loopback_LB12", u"GAINLeft", {0x5103, ValueKind::Linear}},
    {Family::Loopback, u"Loopback_LB12", u"GAINRight", {0x5203, ValueKind::Linear}},
    {Family::Loopback, u"Loopback_LB34", u"AudioSource", {0x5302, ValueKind::Source}},
    {Family::Loopback, u"Loopback_LB34", u"GAINLeft", {0x5303, ValueKind::Linear}},
    {Family::Loopback, u"Loopback_LB34", u"GAINRight", {0x5403, ValueKind::Linear}},
    {Family::Loopback, u"Loopback_LB56", u"AudioSource", {0x5502, ValueKind::Source}},
    {Family::Loopback, u"Loopback_LB56", u"GAINLeft", {0x5503, ValueKind::Linear}},
    {Family::Loopback, u"Loopback_LB56", u"GAINRight", {0x5603, ValueKind::Linear}},
    {Family::Loopback, u"Loopback_LB78", u"AudioSource", {0x5702, ValueKind::Source}},
    {Family::Loopback, u"Loopback_LB78", u"GAINLeft", {0x5703, ValueKind::Linear}},
    {Family::Loopback, u"Loopback_LB78", u"GAINRight", {0x5803, ValueKind::Linear}},
    {Family::Output, u"Output_HP", u"AudioSource", {0x6402, ValueKind::Source}},
    {Family::Output, u"Output_HP", u"GAINLeft", {0x6303, ValueKind::Wide}},
    {Family::Output, u"Output_HP", u"GAINRight", {0x6403, ValueKind::Wide}},
    {Family::Output, u"Output_HP", u"MUTE", {0x6304, ValueKind::Int}, {0x6404, ValueKind::Int}},
    {Family::Output, u"Output_HP", u"MUTELeft", {0x6304, ValueKind::Int}},
    {Family::Output, u"Output_HP", u"MUTERight", {0x6404, ValueKind::Int}},
    {Family::Output, u"Output_OTGOUT", u"AudioSource", {0x6202, ValueKind::Source}},
    {Family::Output, u"Output_OTGOUT", u"GAINLeft", {0x6103, ValueKind::Narrow}},
    {Family::Output, u"Output_OTGOUT", u"GAINRight", {0x6203, ValueKind::Narrow}},
    {Family::Output, u"Output_OTGOUT", u"MUTE", {0x6104, ValueKind::Int}, {0x6204, ValueKind::Int}},
    {Family::Output, u"Output_OTGOUT", u"MUTELeft", {0x6104, ValueKind::Int}},
    {Family::Output, u"Output_OTGOUT", u"MUTERight", {0x6204, ValueKind::Int}},
    {Family::Effect, u"Effect_Integration", u"AuxLevel", {0x4403, ValueKind::Linear}},
    {Family::Effect, u"Effect_Integration", u"BluetoothLevel", {0x4404, ValueKind::Linear}},
    {Family::Effect, u"Effect_Integration", u"Decay", {0x440A, ValueKind::Int}},
    {Family::Effect, u"Effect_Integration", u"DryWet", {0x4408, ValueKind::Int}},
    {Family::Effect, u"Effect_Integration", u"Input1Level", {0x4401, ValueKind::Linear}},
    {Family::Effect, u"Effect_Integration", u"Input2Level", {0x4402, ValueKind::Linear}},
    {Family::Effect, u"Effect_Integration", u"MuteFX", {0x440C, ValueKind::Int}},
    {Family::Effect, u"Effect_Integration", u"NoiseReduction", {0x4406, ValueKind::Int}},
    {Family::Effect, u"Effect_Integration", u"NoiseReductionType", {0x4407, ValueKind::Choice}, {}, kNoiseTypes},
    {Family::Effect, u"Effect_Integration", u"OtgLevel", {0x4405, ValueKind::Linear}},
    {Family::Effect, u"Effect_Integration", u"ReverbType", {0x440B, ValueKind::Choice}, {}, kReverbTypes},
    {Family::Effect, u"Effect_Integration", u"Room", {0x4409, ValueKind::Int}},
    {Family::Effect, u"Effect_NC", u"NoiseReduction", {0x4406, ValueKind::Int}},
    {Family::Effect, u"Effect_NC", u"NoiseReductionType", {0x4407, ValueKind::Choice}, {}, kNoiseTypes},
    {Family::Effect, u"Effect_Reverb", u"Decay", {0x440A, ValueKind::Int}},
    {Family::Effect, u"Effect_Reverb", u"DryWet", {0x4408, ValueKind::Int}},
    {Family::Effect, u"Effect_Reverb", u"ReverbType", {0x440B, ValueKind::Choice}, {}, kReverbTypes},
    {Family::Effect, u"Effect_Reverb", u"Room", {0x4409, ValueKind::Int}},
    {Family::Others, u"ConfigMenuLive", u"Chat", {0x4501, ValueKind::One}},
    {Family::Others, u"ConfigMenuLive", u"Load preset1", {0x110E, ValueKind::One}},
    {Family::Others, u"ConfigMenuLive", u"Load preset2", {0x1112, ValueKind::One}},
    {Family::Others, u"ConfigMenuLive", u"Save preset1", {0x1108, ValueKind::One}},
    {Family::Others, u"ConfigMenuLive", u"Save preset2", {0x110B, ValueKind::One}},
    {Family::Others, u"ConfigMenuLive", u"Vocal", {0x4502, ValueKind::One}},
    {Family::Others, u"ConfigMenuMble", u"Chat", {0x4501, ValueKind::One}},
    {Family::Others, u"ConfigMenuMble", u"Load preset1", {0x110E, ValueKind::One}},
    {Family::Others, u"ConfigMenuMble", u"Load preset2", {0x1112, ValueKind::One}},
    {Family::Others, u"ConfigMenuMble", u"Save preset1", {0x1108, ValueKind::One}},
    {Family::Others, u"ConfigMenuMble", u"Save preset2", {0x110B, ValueKind::One}},
    {Family::Others, u"ConfigMenuMble", u"Vocal", {0x4502, ValueKind::One}},
    {Family::Others, u"ConfigMenuProf", u"Load preset1", {0x110E, ValueKind::One}},
    {Family::Others, u"ConfigMenuProf", u"Load preset2", {0x1112, ValueKind::One}},
    {Family::Others, u"ConfigMenuProf", u"Save preset1", {0x1108, ValueKind::One}},
    {Family::Others, u"ConfigMenuProf", u"Save preset2", {0x110B, ValueKind::One}},
    {Family::Others, u"ConfigMenuTyro", u"DuckingSwitch", {0x4307, ValueKind::Int}},
    {Family::Others, u"ConfigMenuTyro", u"Load preset1", {0x110E, ValueKind::One}},
    {Family::Others, u"ConfigMenuTyro", u"Load preset2", {0x1112, ValueKind::One}},
    {Family::Others, u"ConfigMenuTyro", u"Save preset1", {0x1108, ValueKind::One}},
    {Family::Others, u"ConfigMenuTyro", u"Save preset2", {0x110B, ValueKind::One}},
    {Family::Others, u"Ducking", u"Attack", {0x4302, ValueKind::Int}},
    {Family::Others, u"Ducking", u"DuckingSwitch", {0x4307, ValueKind::Int}},
    {Family::Others, u"Ducking", u"MapIN1", {0x4305, ValueKind::Int}},
    {Family::Others, u"Ducking", u"MapIN2", {0x4306, ValueKind::Int}},
    {Family::Others, u"Ducking", u"Reduction", {0x4303, ValueKind::Int}},
    {Family::Others, u"Ducking", u"Release", {0x4304, ValueKind::Int}},
    {Family::Others, u"Ducking", u"Threshold", {0x4301, ValueKind::Int}},
    {Family::Others, u"SettingsAbout", u"UpdateFirmware", {0x111F, ValueKind::Int}},
    {Family::Others, u"SettingsDevice", u"AutoPoweroff", {0x111E, ValueKind::Int}},
    {Family::Others, u"SettingsDevice", u"Bluetooth", {0x111A, ValueKind::Int}},
    {Family::Others, u"SettingsDevice", u"Brightness", {0x1104, ValueKind::Choice}, {}, kBrightness},
    {Family::Others, u"SettingsDevice", u"FirmwareSelected", {0x111D, ValueKind::Choice}, {}, kWorkModes},
    {Family::Others, u"SettingsDevice", u"MainButtonDouble", {0x1123, ValueKind::Int}},
    {Family::Others, u"SettingsDevice", u"MainButtonSingle", {0x1122, ValueKind::Int}},
    {Family::Others, u"SettingsDevice", u"OtgDirection", {0x111B, ValueKind::Int}},
    {Family::Others, u"SettingsDevice", u"RestoreDefault", {0x1121, ValueKind::Int}},
    {Family::Others, u"SettingsDevice", u"UsbCCharging", {0x111C, ValueKind::Choice}, {}, kCharging},
    {Family::Others, u"Workspace", u"LoadSettings", {0x1120, ValueKind::Int}},
    {Family::Equalizer, u"EQ_HP", u"GainInputLeft", {0xAB14, ValueKind::Int}},
    {Family::Equalizer, u"EQ_HP", u"GainOutputLeft", {0x6303, ValueKind::Wide}, {0x6403, ValueKind::Wide}},
    {Family::Equalizer, u"EQ_HP", u"Switch", {0xAB0F, ValueKind::Int}},
    {Family::Equalizer, u"EQ_IN1", u"Gain", {0x9B0D, ValueKind::Linear}, {0x9B12, ValueKind::Int}},
    {Family::Equalizer, u"EQ_IN1", u"Switch", {0x9B0F, ValueKind::Int}},
    {Family::Equalizer, u"EQ_IN2", u"Gain", {0x9B0E, ValueKind::Linear}, {0x9B13, ValueKind::Int}},
    {Family::Equalizer, u"EQ_IN2", u"Switch", {0x9B10, ValueKind::Int}},
});
// clang-format on

constexpr bool comesBefore(const ParameterRow& a, const ParameterRow& b)
{
    if (a.family != b.family) {
        return a.family < b.family;
    }
    return a.object != b.object ? a.object < b.object : a.attribute < b.attribute;
}

// Strictly ascending: no name twice in a family.
static_assert(std::adjacent_find(kRows.begin(), kRows.end(), [](const auto& a, const auto& b) { return !comesBefore(a, b); }) ==
              kRows.end());
static_assert(std::all_of(kRows.begin(), kRows.end(), [](const ParameterRow& row) {
    return row.first.code != 0 && (row.first.kind == ValueKind::Choice) != row.choices.empty();
}));

constexpr std::uint32_t hashName(Family family, std::u16string_view object, std::u16string_view attribute)
{
    return hashText(attribute, hashText(object, 2166136261u + static_cast<std::uint32_t>(family)));
}

constexpr HashIndex<256> kIndex(kRows, [](const ParameterRow& row) { return hashName(row.family, row.object, row.attribute); });
static_assert(kRows.size() <= 128, "the index stays at most half full");

std::u16string_view text(QStringView view)
{
    return {view.utf16(), static_cast<std::size_t>(view.size())};
}

std::int32_t choiceValue(std::span<const Choice> choices, QStringView value)
{
    const auto found =
        std::find_if(choices.begin(), choices.end(), [name = text(value)](const Choice& choice) { return choice.text == name; });
    return found == choices.end() ? 0 : found->value;
}

/// As QStringView::toDouble, in a fifth of the time for what controls write: digits with a sign and a point.
double decimal(QStringView text)
{
    std::array<char, 24> latin;
    if (text.empty() || text.size() > qsizetype(latin.size()) || !QtPrivate::isLatin1(text)) {
        return text.toDouble();
    }
    std::ranges::transform(text, latin.begin(), [](QChar c) { return c.toLatin1(); });
    double value = 0;
    const char* end = latin.data() + text.size();
    const auto [stop, error] = std::from_chars(latin.data(), end, value);
    return stop == end && error == std::errc() && std::isfinite(value) ? value : text.toDouble();
}

std::int32_t linearValue(QStringView value)
{
    const long long linear = dbToLinear(decimal(value), -90.0);
    return static_cast<std::int32_t>(std::min<long long>(linear, std::numeric_limits<std::int32_t>::max()));
}

/// A mix bus: what its attributes hold, and the high bytes of its left and right crosspoints.
struct Bus {
    std::u16string_view name;
    std::uint8_t left;
    std::uint8_t right;
};
constexpr std::array kBuses{Bus{u"MixA", 0x31, 0x32}, Bus{u"MixB", 0x33, 0x34}, Bus{u"MixC", 0x35, 0x36}, Bus{u"MixD", 0x37, 0x38},
                            Bus{u"MixE", 0x3B, 0x3C}};

/// A crosspoint: the side of the mix and the channel of the source.
struct Crosspoint {
    std::u16string_view name;
    bool rightMix;
    bool rightChannel;
};
constexpr std::array kCrosspoints{Crosspoint{u"GainMLCL", false, false}, Crosspoint{u"GainMLCR", false, true},
                                  Crosspoint{u"GainMRCL", true, false}, Crosspoint{u"GainMRCR", true, true}};

/// The first of the list that the attribute contains, null for none.
template<typename Entries> const auto* firstContained(const Entries& entries, std::u16string_view attribute)
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [attribute](const auto& entry) { return attribute.find(entry.name) != attribute.npos; });
    return found == entries.end() ? nullptr : &*found;
}

} // namespace

std::span<const ParameterRow> parameterRows()
{
    return kRows;
}

const ParameterRow* findParameter(Family family, QStringView object, QStringView attribute)
{
    const auto objectText = text(object);
    const auto attributeText = text(attribute);
    const int place = kIndex.find(hashName(family, objectText, attributeText), [&](std::size_t i) {
        return kRows[i].family == family && kRows[i].object == objectText && kRows[i].attribute == attributeText;
    });
    return place < 0 ? nullptr : &kRows[static_cast<std::size_t>(place)];
}

std::int32_t parameterValue(ValueKind kind, std::span<const Choice> choices, QStringView value)
{
    switch (kind) {
    case ValueKind::Int:
        return value.toInt();
    case ValueKind::Wide:
        return gainToDeviceAux(static_cast<float>(decimal(value)));
    case ValueKind::Narrow:
        return gainToDeviceLine(static_cast<float>(decimal(value)));
    case ValueKind::Linear:
        return linearValue(value);
    case ValueKind::Source:
        return sourceIndex(value);
    case ValueKind::One:
        return 1;
    case ValueKind::Choice:
        return choiceValue(choices, value);
    }
    return 0;
}

std::uint16_t crosspointCode(QStringView object, QStringView attribute)
{
    const Bus* bus = firstContained(kBuses, text(attribute));
    const Crosspoint* crosspoint = firstContained(kCrosspoints, text(attribute));
    if (!bus || !crosspoint) {
        return 0;
    }
    const int source = mixerSourceIndex(object, crosspoint->rightChannel);
    if (source == 0) {
        return 0;
    }
    return static_cast<std::uint16_t>((crosspoint->rightMix ? bus->right : bus->left) << 8 | source);
}

BandCodes bandCodes(QStringView equalizer, QStringView band, QStringView attribute)
{
    const auto code = [&](int block, bool right) {
        return static_cast<std::uint16_t>(eqParameterIndex(attribute, right) | eqBandBits(band) | block);
    };
    if (equalizer == u"EQ_HP") {
        return {code(0xA000, false), code(0xA000, true)};
    }
    // The two inputs share a block, as the left and the right side of one record.
    if (equalizer == u"EQ_IN1") {
        return {code(0x9000, false), 0};
    }
    if (equalizer == u"EQ_IN2") {
        return {code(0x9000, true), 0};
    }
    return {};
}

std::int32_t bandValue(QStringView attribute, QStringView value)
{
    if (attribute == u"Type") {
        const int type = value.toInt();
        return type == std::numeric_limits<int>::max() ? type : type + 1;
    }
    if (attribute == u"Gain") {
        return saturated<std::int32_t>(static_cast<float>(decimal(value)) * 10);
    }
    if (attribute == u"Q") {
        return saturated<std::int32_t>(static_cast<float>(decimal(value)) * 10000);
    }
    return value.toInt();
}

} // namespace quillon
