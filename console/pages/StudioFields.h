#pragma once
// The fields that the Live and the Pro page have in common, built from the tables of each.

#include "console/pages/PageKit.h"
#include "strips/GainScale.h"

#include <span>

class FieldMixerS1M1;
class InputBase;
class LoopbackBase;
class MixerBase;
class OutputBase;

namespace quillon
{

struct InputRow {
    const char* object;
    const char* channelName;
    InputBase* (*make)(const QString& objectName); // with its range of gain
    float gainDefaultDb;
};

struct MixerRow {
    const char* object;
    const char* channelName;
    MixerBase* (*make)(const QString& objectName);
    const char16_t* levelObject; // what reports its levels; null for the two microphones, which report behind their equalizers
};

struct OutputRow {
    const char* object;
    const char* channelName;
    OutputBase* (*make)(const QString& objectName);
    const GainScale& scale;
    float gainDefaultDb;
    const char16_t* source;
};

struct StudioFields {
    QList<InputBase*> inputs;
    QList<MixerBase*> mixers;
    QList<LoopbackBase*> loopbacks;
    QList<OutputBase*> outputs;
};

/// What a page offers: the number of its mixes, whether it has an effect return.
struct Routing {
    qsizetype mixes;
    bool effect;
    ConsolePage::Pane loopbacks; // where these fields stand
    ConsolePage::Pane outputs;
};

QList<InputBase*> buildInputs(PageKit& kit, std::span<const InputRow> rows);
/// The field with its mixes and the list of strips that a new workspace shows in each.
FieldMixerS1M1* buildMixers(PageKit& kit, const Routing& routing, std::span<const MixerRow> rows);
QList<LoopbackBase*> buildLoopbacks(PageKit& kit, const Routing& routing, const FieldMixerS1M1& mixes,
                                    LoopbackBase* (*make)(const QString& objectName));
QList<OutputBase*> buildOutputs(PageKit& kit, const Routing& routing, const FieldMixerS1M1& mixes, std::span<const OutputRow> rows);

/// A microphone strip with its range.
template<class Strip> InputBase* makeMicrophone(const QString& objectName)
{
    auto* strip = new Strip(objectName);
    strip->setGainRange(0, 88);
    return strip;
}
template<class Strip, const GainScale& Scale> InputBase* makeStereo(const QString& objectName)
{
    auto* strip = new Strip(objectName);
    strip->setGainRange(Scale);
    return strip;
}
template<class Base, class Strip> Base* makeStrip(const QString& objectName)
{
    return new Strip(objectName);
}

} // namespace quillon
