#include "device/Frame.h"

#include <algorithm>

namespace quillon
{

namespace
{

// The 15 bytes that both directions share: an output report has them after its report id, an input report at its start.
constexpr std::size_t kBodySize = 15;

void encodeBody(const Frame& frame, std::span<std::uint8_t, kBodySize> body)
{
    const auto code = static_cast<std::uint32_t>(frame.code);
    const auto value = static_cast<std::uint32_t>(frame.value);
    const auto byte = [](std::uint32_t number, int shift) { return static_cast<std::uint8_t>(number >> shift); };
    const std::array<std::uint8_t, kBodySize> bytes{0x22,
                                                    0x33,
                                                    byte(static_cast<std::uint32_t>(frame.frameTag), 0),
                                                    frame.frameRouteA,
                                                    frame.frameRouteB,
                                                    byte(code, 8),
                                                    byte(code, 0),
                                                    byte(value, 24),
                                                    byte(value, 16),
                                                    byte(value, 8),
                                                    byte(value, 0),
                                                    0x00,
                                                    0x00,
                                                    0x66,
                                                    0x77};
    std::copy(bytes.begin(), bytes.end(), body.begin());
}

std::optional<Frame> decodeBody(std::span<const std::uint8_t, kBodySize> body)
{
    if (body[0] != 0x22 || body[1] != 0x33 || body[13] != 0x66 || body[14] != 0x77) {
        return std::nullopt;
    }
    Frame frame;
    frame.frameTag = body[2];
    frame.frameRouteA = body[3];
    frame.frameRouteB = body[4];
    frame.code = body[5] << 8 | body[6];
    frame.value = static_cast<std::int32_t>(std::uint32_t{body[7]} << 24 | std::uint32_t{body[8]} << 16 |
                                            std::uint32_t{body[9]} << 8 | body[10]);
    if (frame.code == 0) {
        return std::nullopt;
    }
    return frame;
}

} // namespace

Report encodeOutput(const Frame& frame)
{
    Report report{};
    encodeBody(frame, std::span(report).last<kBodySize>());
    return report;
}

std::optional<Frame> decodeInput(std::span<const std::uint8_t> report)
{
    if (report.size() != kReportSize) {
        return std::nullopt;
    }
    return decodeBody(report.first<kBodySize>());
}

Report encodeInput(const Frame& frame)
{
    Report report{};
    encodeBody(frame, std::span(report).first<kBodySize>());
    return report;
}

std::optional<Frame> decodeOutput(std::span<const std::uint8_t> report)
{
    if (report.size() != kReportSize || report[0] != 0) {
        return std::nullopt;
    }
    return decodeBody(report.last<kBodySize>());
}

} // namespace quillon
