#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace quillon
{

/// "2.03" of the number 203 that the device reports as its firmware version.
QString firmwareVersionText(std::int32_t value);

/// Collects the five parts of the device's identity, in any order. A value, no thread of its own.
class FirmwareIdentity
{
public:
    /// part: 1 to 5, others are ignored. The text ("01.0a.ff.00.10") once, with the part that completes it; empty otherwise.
    QString take(int part, std::int32_t value);

private:
    static constexpr std::int32_t kComplete = 31;    // bits 0 to 4
    static constexpr std::int32_t kReported = 65535; // the text went out: it does so once per connection
    std::array<std::int32_t, 6> mFirmwareParts{};    // entry 0 is the mask of the parts that came
};

} // namespace quillon
