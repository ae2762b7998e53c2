#pragma once
// Output and loopback strips, each of their members.

#include "StripBench.h"
#include "resources/Resources.h"
#include "strips/field/FieldLoopbackS1M1.h"
#include "strips/field/FieldOutputS1M1.h"
#include "strips/loopback/LoopbackS1M1.h"
#include "strips/loopback/LoopbackS1M2.h"
#include "strips/output/OutputS1M1.h"
#include "strips/output/OutputS1M2.h"
#include "strips/output/OutputS1M3.h"
#include "strips/output/OutputS1M4.h"

#include <QAction>
#include <QMenu>

namespace bench
{

using namespace Qt::StringLiterals;

template<class Strip> std::unique_ptr<quillon::RouteStrip> make(const QString& name)
{
    quillon::initResources();
    auto strip = std::make_unique<Strip>(name);
    if constexpr (std::is_base_of_v<OutputBase, Strip>) {
        strip->setGainRange(quillon::scaleAux).setGainDefault(-38);
    }
    strip->setAudioSourceDefault(u"Mix B"_s).setUnmuteOnGain(true).setChannelName(name);
    strip->setAudioSourceList(u"Mix"_s, {u"Mix A"_s, u"Mix B"_s}).setAudioSourceList(u"Input"_s, {u"IN 1"_s});
    return strip;
}

struct Member {
    const char* name;
    std::unique_ptr<quillon::RouteStrip> (*make)(const QString&);
    bool loopback;
    bool pair;
    bool equalizer;

    QString text(const char* output, const char* other) const { return QLatin1StringView(loopback ? other : output); }
};

inline constexpr Member kMembers[]{
    {"OutputS1M1", make<OutputS1M1>, false, false, false},    {"OutputS1M2", make<OutputS1M2>, false, true, false},
    {"OutputS1M3", make<OutputS1M3>, false, false, false},    {"OutputS1M4", make<OutputS1M4>, false, false, true},
    {"LoopbackS1M1", make<LoopbackS1M1>, true, false, false}, {"LoopbackS1M2", make<LoopbackS1M2>, true, true, false}};

/// Takes a source out of the strip's menu.
inline void choose(const quillon::RouteStrip& strip, const QString& source)
{
    for (QMenu* menu : strip.findChildren<QMenu*>()) {
        for (QAction* action : menu->actions()) {
            if (action->text() == source) {
                action->trigger();
            }
        }
    }
}

} // namespace bench
