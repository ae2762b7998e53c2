#pragma once

#include "strips/mixer/MixerBase.h"

namespace quillon
{

/// The strips with one fader between the levels of both channels.
inline constexpr MixerShape kStereoMixerShape{
    .minimum = {56, 220},
    .linkedMeters = {{3.0F, 2.0F, 36.0F, 70.0F, From::NameRow}, {61.0F, 2.0F, 36.0F, 70.0F, From::NameRow}},
    .faders = {{39.0F, 2.0F, 22.0F, 70.0F, From::NameRow}, {}, {}},
    .groups = {{2.0F, 82.5F, 96.0F, 0.0F}, {}, {}},
    .linkedWidths = {43, 8, 20, 15, 14},
    .heights = {2, 2, 94, 2}};

} // namespace quillon
