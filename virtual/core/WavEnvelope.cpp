#include "virtual/core/Performance.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <fstream>

namespace r47
{

namespace
{

constexpr std::uint32_t kMaxBytes = 512u << 20;
constexpr double kStepSeconds = 0.01;

struct Format {
    std::uint16_t kind = 0; // 1 PCM, 3 float
    std::uint16_t channels = 0;
    std::uint32_t rate = 0;
    std::uint16_t bits = 0;

    bool isKnown() const
    {
        const bool form = (kind == 1 && (bits == 16 || bits == 24 || bits == 32)) || (kind == 3 && bits == 32);
        return form && channels >= 1 && channels <= 64 && rate >= 1000 && rate <= 768000;
    }
};

template<typename T> T little(const unsigned char* bytes, std::size_t size = sizeof(T))
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
        value |= std::uint64_t(bytes[i]) << (8 * i);
    return T(value);
}

float sampleAt(const unsigned char* bytes, const Format& format)
{
    if (format.kind == 3) {
        const float value = std::fabs(std::bit_cast<float>(little<std::uint32_t>(bytes)));
        return std::isfinite(value) ? value : 0.0f;
    }
    // The sample is moved to the top of 32 bits, so that its sign is theirs.
    const auto raw = little<std::uint32_t>(bytes, format.bits / 8u) << (32 - format.bits);
    return std::fabs(float(std::int32_t(raw)) / 2147483648.0f);
}

std::vector<float> peaksOf(std::istream& in, const Format& format, std::uint32_t bytes)
{
    const std::size_t sampleBytes = format.bits / 8u;
    const std::size_t stepBytes = std::size_t(format.rate * kStepSeconds) * format.channels * sampleBytes;
    std::vector<unsigned char> step(stepBytes);
    std::vector<float> peaks;
    while (bytes >= sampleBytes) {
        in.read(reinterpret_cast<char*>(step.data()), std::streamsize(std::min<std::size_t>(stepBytes, bytes)));
        const auto got = std::size_t(in.gcount());
        if (got < sampleBytes)
            break;
        float peak = 0.0f;
        for (std::size_t at = 0; at + sampleBytes <= got; at += sampleBytes)
            peak = std::max(peak, sampleAt(step.data() + at, format));
        peaks.push_back(peak);
        bytes -= std::uint32_t(got);
    }
    return peaks;
}

} // namespace

bool WavEnvelope::load(const std::string& path, std::string& reason)
{
    std::ifstream in(path, std::ios::binary);
    unsigned char head[12];
    if (!in.read(reinterpret_cast<char*>(head), sizeof head) || std::memcmp(head, "RIFF", 4) != 0 ||
        std::memcmp(head + 8, "WAVE", 4) != 0) {
        reason = "not a WAV file";
        return false;
    }
    Format format;
    unsigned char chunk[8];
    while (in.read(reinterpret_cast<char*>(chunk), sizeof chunk)) {
        const auto size = little<std::uint32_t>(chunk + 4);
        if (std::memcmp(chunk, "data", 4) == 0) {
            std::vector<float> peaks;
            if (format.isKnown() && size <= kMaxBytes)
                peaks = peaksOf(in, format, size);
            if (peaks.empty())
                break;
            mPeaks = std::move(peaks);
            return true;
        }
        std::uint64_t skip = std::uint64_t(size) + (size & 1);
        unsigned char body[16];
        if (std::memcmp(chunk, "fmt ", 4) == 0 && size >= sizeof body && in.read(reinterpret_cast<char*>(body), sizeof body)) {
            format = {little<std::uint16_t>(body), little<std::uint16_t>(body + 2), little<std::uint32_t>(body + 4),
                      little<std::uint16_t>(body + 14)};
            skip -= sizeof body;
        }
        in.seekg(std::streamoff(skip), std::ios::cur);
    }
    reason = "no samples of a known form";
    return false;
}

double WavEnvelope::powerAt(double seconds) const
{
    if (mPeaks.empty())
        return 0.0;
    const float peak = mPeaks[std::size_t(seconds / kStepSeconds) % mPeaks.size()];
    return double(peak) * double(peak);
}

} // namespace r47
