#pragma once
// Codes and names: what a code is called in records and scripts, and which report a change at the front panel makes.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace r47
{

/// A change at the front panel as it goes to the application.
struct PanelReport {
    std::uint16_t code;
    std::int32_t value;
    bool isLevel; // a meter reading, not a parameter
};

class Names
{
public:
    Names();

    /// "Input_IN1.MUTE", "EQ_HP@3.Gain", "Auth"; "-" for a code without a name. One array access.
    const std::string& of(std::uint16_t code) const { return mNames[mIndex[code]]; }

    /// The code of a name as in of(), or of four hexadecimal digits, with or without 0x.
    std::optional<std::uint16_t> code(const std::string& text) const;

    /// The report of a control that the unit itself has, with the value as the console shows it ("-6", "Mic35", "1"). For "Plug" 1
    /// is plugged; levels are in dB or "clip". Nothing, and a reason, for what the unit can not change or a value it does not know.
    std::optional<PanelReport> panel(const std::string& object, const std::string& attribute, const std::string& value,
                                     std::string& reason) const;

private:
    void add(std::uint16_t code, std::string name);
    void addRows();
    void addCrosspoints();
    void addBands();
    void addReports();

    std::vector<std::string> mNames{"-"};
    std::vector<std::uint16_t> mIndex;
    std::unordered_map<std::string, std::uint16_t> mCodes;
};

} // namespace r47
