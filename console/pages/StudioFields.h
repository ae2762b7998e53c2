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

// What stands on both pages, by the kinds of strip that the page has.

template<class Microphone1, class Microphone2, class Stereo>
inline constexpr InputRow kStudioInputs[]{
    {"Input_IN1", "IN 1", makeMicrophone<Microphone1>, 26},      {"Input_IN2", "IN 2", makeMicrophone<Microphone2>, 26},
    {"Input_AUX", "AUX", makeStereo<Stereo, scaleAux>, 0},       {"Input_BT", "BT", makeStereo<Stereo, scaleLine>, -6},
    {"Input_OTGIN", "OTG IN", makeStereo<Stereo, scaleLine>, 0},
};

/// With the effect return, which a page without one leaves out.
template<class Microphones, class Pair>
inline constexpr MixerRow kStudioMixers[]{
    {"Mixer_IN12", "IN 1+2", makeStrip<MixerBase, Microphones>, nullptr},
    {"Mixer_AUX", "AUX", makeStrip<MixerBase, Pair>, u"Input_AUX"},
    {"Mixer_BT", "BT", makeStrip<MixerBase, Pair>, u"Input_BT"},
    {"Mixer_OTGIN", "OTG IN", makeStrip<MixerBase, Pair>, u"Input_OTGIN"},
    {"Mixer_FX", "FX", makeStrip<MixerBase, Pair>, u"Effect"},
    {"Mixer_PB12", "Playback 1/2", makeStrip<MixerBase, Pair>, u"Playback 1/2"},
    {"Mixer_PB34", "Playback 3/4", makeStrip<MixerBase, Pair>, u"Playback 3/4"},
    {"Mixer_PB56", "Playback 5/6", makeStrip<MixerBase, Pair>, u"Playback 5/6"},
    {"Mixer_PB78", "Playback 7/8", makeStrip<MixerBase, Pair>, u"Playback 7/8"},
    {"Mixer_PB910", "Playback 9/10", makeStrip<MixerBase, Pair>, u"Playback 9/10"},
};

template<class Headphones, class Otg>
inline constexpr OutputRow kStudioOutputs[]{
    {"Output_HP", "HP OUT", makeStrip<OutputBase, Headphones>, scaleAux, -38, u"Mix B"},
    {"Output_OTGOUT", "OTG OUT", makeStrip<OutputBase, Otg>, scaleLine, 0, u"Mix C"},
};

} // namespace quillon
