#pragma once
// What an output or a loopback can play: the menu, and where the levels of each source are reported.

#include "console/pages/PageKit.h"
#include "strips/output/RouteStrip.h"

#include <QStringList>

namespace quillon
{

/// Gives a strip the menu of a page. mixes: how many the page has; effect: whether it has an effect return.
template<class Strip> void fillSourceMenu(Strip& strip, qsizetype mixes, bool effect)
{
    static const QStringList kMixes{"Mix A", "Mix B", "Mix C", "Mix D", "Mix E"};
    strip.setAudioSourceList(QStringLiteral("Mix"), kMixes.first(mixes));
    strip.setAudioSourceList(QStringLiteral("Input"), {"IN 1", "IN 2", "IN 1+2", "AUX", "BT", "OTG IN"});
    strip.setAudioSourceList(QStringLiteral("Playback"),
                             {"Playback 1/2", "Playback 3/4", "Playback 5/6", "Playback 7/8", "Playback 9/10"});
    if (effect) {
        strip.setAudioSourceList(QStringLiteral("Effect"), {"FX"});
    }
}

/// Shows on a strip the level of whatever its source is, since the device has no meter of the strip's own.
void reportSourceLevels(PageKit& kit, RouteStrip& strip);

} // namespace quillon
