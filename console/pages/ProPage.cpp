#include "console/menu/R47_PrivateWidget5.h"
#include "console/pages/Pages.h"
#include "console/pages/StudioFields.h"
#include "strips/field/FieldMixerS1M1.h"
#include "strips/input/InputS1M4.h"
#include "strips/input/InputS1M5.h"
#include "strips/input/InputS1M6.h"
#include "strips/loopback/LoopbackS1M2.h"
#include "strips/mixer/MixerS1M4.h"
#include "strips/output/OutputS1M3.h"
#include "strips/output/OutputS1M4.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr Routing kRouting{3, false, ConsolePage::Left, ConsolePage::Right};

constexpr InputRow kInputs[]{
    {"Input_IN1", "IN 1", makeMicrophone<InputS1M4>, 26},           {"Input_IN2", "IN 2", makeMicrophone<InputS1M5>, 26},
    {"Input_AUX", "AUX", makeStereo<InputS1M6, scaleAux>, 0},       {"Input_BT", "BT", makeStereo<InputS1M6, scaleLine>, -6},
    {"Input_OTGIN", "OTG IN", makeStereo<InputS1M6, scaleLine>, 0},
};

constexpr auto kPair = makeStrip<MixerBase, MixerS1M4>;
constexpr MixerRow kMixers[]{
    {"Mixer_IN12", "IN 1+2", kPair, nullptr},
    {"Mixer_AUX", "AUX", kPair, u"Input_AUX"},
    {"Mixer_BT", "BT", kPair, u"Input_BT"},
    {"Mixer_OTGIN", "OTG IN", kPair, u"Input_OTGIN"},
    {"Mixer_PB12", "Playback 1/2", kPair, u"Playback 1/2"},
    {"Mixer_PB34", "Playback 3/4", kPair, u"Playback 3/4"},
    {"Mixer_PB56", "Playback 5/6", kPair, u"Playback 5/6"},
    {"Mixer_PB78", "Playback 7/8", kPair, u"Playback 7/8"},
    {"Mixer_PB910", "Playback 9/10", kPair, u"Playback 9/10"},
};

constexpr OutputRow kOutputs[]{
    {"Output_HP", "HP OUT", makeStrip<OutputBase, OutputS1M4>, scaleAux, -38, u"Mix B"},
    {"Output_OTGOUT", "OTG OUT", makeStrip<OutputBase, OutputS1M3>, scaleLine, 0, u"Mix C"},
};

} // namespace

void buildProPage(PageKit& kit)
{
    const QList<InputBase*> inputs = buildInputs(kit, kInputs);
    FieldMixerS1M1* mixes = buildMixers(kit, kRouting, kMixers);
    buildLoopbacks(kit, kRouting, *mixes, makeStrip<LoopbackBase, LoopbackS1M2>);
    const QList<OutputBase*> outputs = buildOutputs(kit, kRouting, *mixes, kOutputs);

    kit.addMenu(new R47_PrivateWidget5(u"ConfigMenuProf"_s));
    kit.addMicrophone(inputs[0], ConsoleLinks::In1, false);
    kit.addMicrophone(inputs[1], ConsoleLinks::In2, false);
    auto* headphones = static_cast<OutputS1M4*>(outputs[0]);
    kit.link(headphones, u"EQ"_s,
             [&links = kit.links()](const QString& value) { links.equalizer[ConsoleLinks::Headphones](value); });
    kit.links().equalizerLamps[ConsoleLinks::Headphones].push_back([headphones](bool on) { headphones->setEQ(on); });
    // Its equalizer reports the same two levels.
    kit.report(u"EQ_HP", u"MeterLeft", headphones->deviceSetter(u"MeterLeft"));
    kit.report(u"EQ_HP", u"MeterRight", headphones->deviceSetter(u"MeterRight"));
}

} // namespace quillon
