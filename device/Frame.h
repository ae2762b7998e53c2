#pragma once
// One device frame and its two wire forms: 16 bytes with a report id on the way out, 15 used bytes without one on the way in.

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace quillon
{

struct Frame {
    std::int32_t code = 0;  // parameter address, the low 16 bits count
    std::int32_t value = 0; // parameter value
    std::uint8_t frameRouteA = 0x01;
    std::uint8_t frameRouteB = 0x01;
    std::int32_t frameTag = 0x20; // the low byte reaches the wire

    friend bool operator==(const Frame&, const Frame&) = default;
};

inline constexpr std::size_t kReportSize = 16;
using Report = std::array<std::uint8_t, kReportSize>;

/// The output report of a frame: report id 0, marks 22 33 .. 66 77, code and value big-endian. Any thread.
Report encodeOutput(const Frame& frame);

/// The frame of an input report (no report id). Nothing when it is not 16 bytes long, a mark is wrong or the code is 0. Any thread.
std::optional<Frame> decodeInput(std::span<const std::uint8_t> report);

/// The same two forms seen from the device: the input report of a frame, and the frame of an output report. Any thread.
Report encodeInput(const Frame& frame);
std::optional<Frame> decodeOutput(std::span<const std::uint8_t> report);

} // namespace quillon
