#pragma once

#include "strips/StripLayout.h"
#include "strips/StripRow.h"

namespace quillon
{

/// A strip that gives a source to an output or a loopback, as data: its smallest size, and where its controls stand. Without a
/// place for the link button it has the linked form alone.
struct RouteShape {
    QSize minimum;
    Place source;
    Place fader;
    Place meterLeft;
    Place meterRight;
    Place mute;
    Place link = {};
    Place faderLeft = {};
    Place faderRight = {};
    Place meter = {};
    Place muteLeft = {};
    Place muteRight = {};

    constexpr bool hasPair() const { return link.width > 0; }
};

/// What a family of them does in its own way.
struct RouteKind {
    ValueForm gainForm;
    float muteGain;        // dB that a muted or hidden strip sends as its gain
    bool muteByGain;       // whether it does
    bool decaysWithSource; // levels of the source before run down
    bool linkDefault;      // form of a fresh workspace, where there are two
};

/// Where faders and meters begin, in percent of the height.
inline constexpr float kRouteTop = 18.0F;

/// The one fader between its two meters.
constexpr RouteShape singleRouteShape(const Place& mute)
{
    return {.minimum = {56, 220},
            .source = {3.0F, 9.8F, 94.0F, 6.4F},
            .fader = {35.0F, kRouteTop, 30.0F, 62.0F},
            .meterLeft = {2.0F, kRouteTop, 33.0F, 62.0F},
            .meterRight = {65.0F, kRouteTop, 33.0F, 62.0F},
            .mute = mute};
}

/// The same, and a meter between two faders.
constexpr RouteShape pairRouteShape()
{
    return {.minimum = {80, 220},
            .source = {3.0F, 9.8F, 94.0F, 6.4F},
            .fader = {36.0F, kRouteTop, 28.0F, 55.0F},
            .meterLeft = {11.0F, kRouteTop, 24.0F, 55.0F},
            .meterRight = {65.0F, kRouteTop, 24.0F, 55.0F},
            .mute = {34.0F, 82.5F, 32.0F, 0.0F},
            .link = {36.0F, 74.5F, 28.0F, 0.0F},
            .faderLeft = {4.0F, kRouteTop, 26.0F, 55.0F},
            .faderRight = {70.0F, kRouteTop, 26.0F, 55.0F},
            .meter = {31.0F, kRouteTop, 38.0F, 55.0F},
            .muteLeft = {8.0F, 82.5F, 32.0F, 0.0F},
            .muteRight = {60.0F, 82.5F, 32.0F, 0.0F}};
}

} // namespace quillon
