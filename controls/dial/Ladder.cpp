#include "controls/dial/Ladder.h"

#include <algorithm>
#include <cmath>

namespace quillon
{

float Ladder::stepUp(float value) const
{
    if (value >= threshold1)
        return value + 0.5F;
    if (value >= threshold2)
        return value + 1;
    return value >= threshold3 ? value + 2 : value;
}

float Ladder::stepDown(float value) const
{
    if (value > threshold1)
        return value - 0.5F;
    if (value > threshold2)
        return value - 1;
    return value > threshold3 ? value - 2 : value;
}

float Ladder::steps(float value, int count) const
{
    // A hundred turns of a wheel come in one event only by mistake; nothing is gained by walking them all.
    constexpr int kMost = 1000;
    for (int i = std::min(std::abs(std::clamp(count, -kMost, kMost)), kMost); i > 0; --i)
        value = count > 0 ? stepUp(value) : stepDown(value);
    return clamp(value);
}

bool Ladder::isOn(float value) const
{
    const float step = value >= threshold1 ? 0.5F : value >= threshold2 ? 1.0F : 2.0F;
    return value < threshold3 || std::fmod(value, step) == 0;
}

float Ladder::nearest(float value) const
{
    value = clamp(value);
    const float step = value >= threshold1 ? 0.5F : value >= threshold2 ? 1.0F : 2.0F;
    return clamp(std::round(value / step) * step);
}

float Ladder::clamp(float value) const
{
    return std::min(std::max(value, threshold3), max);
}

} // namespace quillon
