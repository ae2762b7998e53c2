#pragma once

#include <cmath>
#include <limits>

namespace quillon
{

/// Truncates towards zero. A number beyond the type stops at its end and NaN is 0: a cast alone is undefined there, and the
/// texts that the numbers come from are read from files.
template<typename Integer, typename Real> Integer saturated(Real number)
{
    using Limits = std::numeric_limits<Integer>;
    if (std::isnan(number)) {
        return 0;
    }
    // The upper end is not exact in binary floating point: the next power of two is.
    if (number >= -static_cast<Real>(Limits::min())) {
        return Limits::max();
    }
    if (number <= static_cast<Real>(Limits::min())) {
        return Limits::min();
    }
    return static_cast<Integer>(number);
}

} // namespace quillon
