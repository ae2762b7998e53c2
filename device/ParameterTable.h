#pragma once
// What the device can be told, as data: one row per object and attribute of the console, with its address and value form.
// Crosspoints and equalizer bands are too regular for rows and have their own address functions. Free of state, any thread.

#include <QString>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillon
{

/// The slot that a row belongs to. Objects of another family are unknown to it.
enum class Family : std::uint8_t { System, Head, Input, Loopback, Output, Effect, Others, Equalizer };

/// How the text of an event becomes the value of a frame.
enum class ValueKind : std::uint8_t {
    Int,    // the integer; text that is none is 0
    Wide,   // index of the +9 dB scale
    Narrow, // index of the 0 dB scale
    Linear, // linear gain of a dB, 0 from -90 dB down
    Source, // audio source, -1 for an unknown one
    One,    // 1 whatever the text says
    Choice, // the number of the text in the row's list, 0 for any other text
};

struct Choice {
    std::u16string_view text;
    std::int32_t value;
};

/// One frame of a row.
struct Target {
    std::uint16_t code = 0; // 0: no frame
    ValueKind kind = ValueKind::Int;
};

struct ParameterRow {
    Family family;
    std::u16string_view object;
    std::u16string_view attribute;
    Target first;
    Target second = {};                   // sent after the first
    std::span<const Choice> choices = {}; // of kind Choice
};

/// All rows, ascending by family, object and attribute.
std::span<const ParameterRow> parameterRows();
/// The row of a name, null for one that the family doesn't have. Constant time, no allocation.
const ParameterRow* findParameter(Family family, QStringView object, QStringView attribute);
/// The value of a text in the given form. Numbers beyond 32 bits stop at their ends.
std::int32_t parameterValue(ValueKind kind, std::span<const Choice> choices, QStringView value);

/// Code of a crosspoint: the mixer object and an attribute that holds mix and crosspoint ("MixA_GainMLCL").
/// 0 when the object, the mix or the crosspoint is unknown.
std::uint16_t crosspointCode(QStringView object, QStringView attribute);

/// The up to two codes of a band parameter, in the order in which they are sent; 0 for no frame.
struct BandCodes {
    std::uint16_t first = 0;
    std::uint16_t second = 0;
};
/// Codes of an equalizer ("EQ_HP"), band ("1".."10") and attribute ("Gain"). None for an unknown equalizer; an unknown band or
/// attribute makes codes with 0 in its place.
BandCodes bandCodes(QStringView equalizer, QStringView band, QStringView attribute);
/// The value of a band parameter: type counted from 1, gain in tenths of a dB, Q in 1/10000, all else the integer.
std::int32_t bandValue(QStringView attribute, QStringView value);

} // namespace quillon
