#pragma once
// What the device reports, as data: one row per code that carries a parameter or a level of a console object.

#include <QString>
#include <QVariant>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillon
{

/// How the value of a report is read. The result type is what the console's setters take.
enum class InboundForm : std::uint8_t {
    Level,      // int: tenths of a dB, 1 for clip
    Number,     // int: the number itself
    Plain,      // float: the number itself
    Aux,        // float: deviceToGainAux
    Line,       // float: deviceToGainLine
    Flag,       // bool: not zero
    Absent,     // bool: true when the value is zero (a plug that is missing)
    MicType,    // QString: 1 "Mic1", 2 "Mic35", 3 "MicHP", else "Mic1"
    NoiseType,  // QString: 0 "Bypass", 15 "NC1", 30 "NC2", 45 "NC3", else "Bypass"
    Brightness, // QString: 0 "Dim", 1 "Normal", 2 "Bright", else nothing
    Charging,   // QString: 1 "Charge", 2 "Discharge", 3 "Disabled", else nothing
    ReverbType, // QString: 1 "Bypass", 2 "STUDIO", 3 "LIVE", 4 "HALL", else "Bypass"
};

struct InboundRow {
    std::uint16_t code;
    std::u16string_view object;    // "Input_IN1"
    std::u16string_view attribute; // "Meter", "MeterLeft", "MeterRight", "MIC", "48V", "GAIN", "MUTE", "Plug", ...
    InboundForm form;
};

/// All rows, ascending by code.
std::span<const InboundRow> inboundRows();
/// Position of a code in inboundRows(), -1 for a code that no console object takes. Constant time.
int inboundIndex(std::uint16_t code);
/// The value of a report in the form of its row; an invalid one is to be dropped.
QVariant inboundValue(InboundForm form, std::int32_t value);

/// A field of an equalizer's band, as its window names it.
struct InboundBand {
    std::u16string_view equalizer; // "EQ_IN1", "EQ_IN2", "EQ_HP"; empty: the code is no band's
    int band = 0;                  // 1 to 10
    std::u16string_view attribute; // "Switch", "Type", "Gain", "Freq", "Q"
};

/// What band a code reports. The two sides of the headphones are one curve: only the left one speaks.
InboundBand inboundBand(std::uint16_t code);
/// The value of such a report as the band's control takes it: types count from 0, gain is in dB.
QString inboundBandText(std::u16string_view attribute, std::int32_t value);

} // namespace quillon
