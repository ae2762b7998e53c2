#pragma once

#include "strips/input/InputBase.h"

namespace quillon
{

inline constexpr Place kMicrophoneSelector{48.0F, 3.0F, 38.0F, 0.0F, From::NameRow};
inline constexpr Place kMicrophoneSwitches{38.0F, 22.0F, 60.0F, 0.0F};

/// The strip of a microphone input: level at the left, gain at the right, balance across. What stands in the first and in the third
/// place for a group is the member's.
constexpr InputShape microphoneShape(const Place& firstGroup, const Place& thirdGroup)
{
    return {.minimum = {80, 220},
            .meter = {5.5F, 0.0F, 32.0F, 57.0F, From::NameRow},
            .groups = {firstGroup, {20.1F, 82.5F, 59.8F, 0.0F}, thirdGroup},
            .dial = {48.9F, 48.0F, 38.0F, kTitlePercent, From::NameRow},
            .slider = {0.0F, 58.0F, 100.0F, 16.0F, From::NameRow},
            .wholeGain = true};
}

/// The same with the polarity over solo and mute. Level and gain take the room of the balance.
constexpr InputShape polarityShape(const Place& firstGroup, const Place& thirdGroup)
{
    InputShape shape = microphoneShape(firstGroup, thirdGroup);
    shape.meter.height = 71.0F;
    shape.dial = {42.0F, 44.0F, 52.0F, 24.0F, From::NameRow};
    shape.slider = {};
    return shape;
}

} // namespace quillon
