#pragma once

namespace quillon
{

/// Whole notches of a wheel. Parts of a notch, as fine wheels and touch pads send them, add up until the direction turns.
class WheelSteps
{
public:
    static constexpr int kNotch = 120; // angle units

    /// The whole notches that this turn completes, truncated toward zero.
    int take(int angleDelta)
    {
        if ((angleDelta > 0) != (mRest > 0))
            mRest = 0;
        mRest += angleDelta;
        const int notches = mRest / kNotch;
        mRest -= notches * kNotch;
        return notches;
    }

private:
    int mRest = 0;
};

} // namespace quillon
