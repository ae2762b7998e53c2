#include "console/effect/R47_PrivateWidget3.h"
#include "console/menu/R47_PrivateWidget2.h"
#include "console/pages/Pages.h"
#include "console/pages/StudioFields.h"
#include "strips/field/FieldEffectS1M1.h"
#include "strips/field/FieldMixerS1M1.h"
#include "strips/input/InputS1M1.h"
#include "strips/input/InputS1M2.h"
#include "strips/input/InputS1M3.h"
#include "strips/loopback/LoopbackS1M1.h"
#include "strips/mixer/MixerS1M2.h"
#include "strips/mixer/MixerS1M3.h"
#include "strips/output/OutputS1M1.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr Routing kRouting{5, true, ConsolePage::LowerLeft, ConsolePage::LowerRight};

constexpr InputRow kInputs[]{
    {"Input_IN1", "IN 1", makeMicrophone<InputS1M1>, 26},           {"Input_IN2", "IN 2", makeMicrophone<InputS1M2>, 26},
    {"Input_AUX", "AUX", makeStereo<InputS1M3, scaleAux>, 0},       {"Input_BT", "BT", makeStereo<InputS1M3, scaleLine>, -6},
    {"Input_OTGIN", "OTG IN", makeStereo<InputS1M3, scaleLine>, 0},
};

constexpr auto kPair = makeStrip<MixerBase, MixerS1M2>;
constexpr MixerRow kMixers[]{
    {"Mixer_IN12", "IN 1+2", makeStrip<MixerBase, MixerS1M3>, nullptr},
    {"Mixer_AUX", "AUX", kPair, u"Input_AUX"},
    {"Mixer_BT", "BT", kPair, u"Input_BT"},
    {"Mixer_OTGIN", "OTG IN", kPair, u"Input_OTGIN"},
    {"Mixer_FX", "FX", kPair, u"Effect"},
    {"Mixer_PB12", "Playback 1/2", kPair, u"Playback 1/2"},
    {"Mixer_PB34", "Playback 3/4", kPair, u"Playback 3/4"},
    {"Mixer_PB56", "Playback 5/6", kPair, u"Playback 5/6"},
    {"Mixer_PB78", "Playback 7/8", kPair, u"Playback 7/8"},
    {"Mixer_PB910", "Playback 9/10", kPair, u"Playback 9/10"},
};

constexpr OutputRow kOutputs[]{
    {"Output_HP", "HP OUT", makeStrip<OutputBase, OutputS1M1>, scaleAux, -38, u"Mix B"},
    {"Output_OTGOUT", "OTG OUT", makeStrip<OutputBase, OutputS1M1>, scaleLine, 0, u"Mix C"},
};

/// The place of a microphone between the sides is set on its own strip and is part of what the mixes get.
void linkBalance(PageKit& kit, InputBase* microphone, MixerS1M3* mixer, void (MixerS1M3::*set)(int, bool))
{
    kit.link(microphone, u"Balance"_s, [mixer, set](const QString& value) { (mixer->*set)(value.toInt(), true); });
    kit.link(microphone, u"BalanceLoad"_s, [mixer, set](const QString& value) { (mixer->*set)(value.toInt(), false); });
}

void addEffects(PageKit& kit)
{
    auto* field = kit.addField(ConsolePage::Left, new FieldEffectS1M1(u"FieldEffect"_s));
    auto* panel = kit.add(new R47_PrivateWidget3(u"Effect_Integration"_s), {&DeviceR47::in_fieldEffect_attributeChanged});
    panel->setChannelName(u"Effect_Integration"_s).setSaveEvents(false);
    kit.bind(u"Effect"_s, *panel);
    field->setWidgetList({panel});
}

} // namespace

void buildLivePage(PageKit& kit)
{
    const QList<InputBase*> inputs = buildInputs(kit, kInputs);
    FieldMixerS1M1* mixes = buildMixers(kit, kRouting, kMixers);
    addEffects(kit);
    buildLoopbacks(kit, kRouting, *mixes, makeStrip<LoopbackBase, LoopbackS1M1>);
    buildOutputs(kit, kRouting, *mixes, kOutputs);

    kit.addMenu(new R47_PrivateWidget2(u"ConfigMenuLive"_s));
    kit.addMicrophone(inputs[0], ConsoleLinks::In1, true);
    kit.addMicrophone(inputs[1], ConsoleLinks::In2, true);
    auto* microphones = mixes->findChild<MixerS1M3*>();
    linkBalance(kit, inputs[0], microphones, &MixerS1M3::setBalanceLeft);
    linkBalance(kit, inputs[1], microphones, &MixerS1M3::setBalanceRight);
}

} // namespace quillon
