#pragma once
// What the device has been told: one value for each of the 65536 codes, if any. Reads cost one array access.

#include <cstdint>
#include <vector>

namespace r47
{

class ParameterStore
{
public:
    ParameterStore() : mValues(kCodes), mKnown(kCodes) {}

    void set(std::uint16_t code, std::int32_t value)
    {
        mValues[code] = value;
        mKnown[code] = true;
    }
    bool knows(std::uint16_t code) const { return mKnown[code]; }
    std::int32_t value(std::uint16_t code, std::int32_t fallback = 0) const { return mKnown[code] ? mValues[code] : fallback; }

    /// Forgets what lies in [first, last].
    void forget(std::uint16_t first, std::uint16_t last)
    {
        for (std::uint32_t code = first; code <= last; ++code)
            mKnown[code] = false;
    }

    /// Calls f(code, value) for each known code, ascending.
    template<typename F> void forEach(F f) const
    {
        for (std::uint32_t code = 0; code < kCodes; ++code)
            if (mKnown[code])
                f(std::uint16_t(code), mValues[code]);
    }

private:
    static constexpr std::uint32_t kCodes = 0x10000;
    std::vector<std::int32_t> mValues;
    std::vector<bool> mKnown;
};

} // namespace r47
