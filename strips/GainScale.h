#pragma once

namespace quillon
{

/// The four points of a ladder control, in dB: above the knee it moves by 0.5, above the low knee by 1, below it by 2. The points
/// must agree with the device's value laws.
struct GainScale {
    int maximum;
    int knee;
    int lowKnee;
    int minimum;
};

inline constexpr GainScale scaleAux{9, -10, -52, -90};
inline constexpr GainScale scaleLine{0, -10, -89, -89};
inline constexpr GainScale scalePlayback{12, 12, -90, -90};
inline constexpr GainScale scaleRecord{0, 0, -90, -90};
inline constexpr GainScale scaleMicrophone{88, 88, 0, 0};

} // namespace quillon
