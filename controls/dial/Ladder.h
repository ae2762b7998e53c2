#pragma once

namespace quillon
{

/// The fader law for a level in dB: steps of 0.5 from threshold1 up, of 1 from threshold2 up, of 2 from threshold3 up.
/// threshold3 is the bottom of the range as well.
struct Ladder {
    float max = 0;
    float threshold1 = -10;
    float threshold2 = -20;
    float threshold3 = -30;

    /// One step from value, not clamped. On a threshold the way up is the finer step and the way down the coarser.
    float stepUp(float value) const;
    float stepDown(float value) const;
    /// That many single steps, each from the result of the last, clamped once at the end. Negative goes down.
    float steps(float value, int count) const;
    /// Whether a drag may rest on value: a multiple of the step that holds there.
    bool isOn(float value) const;
    /// The value on the ladder that is nearest, within the range.
    float nearest(float value) const;
    float clamp(float value) const;
};

} // namespace quillon
