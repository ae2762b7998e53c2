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
    const QList<InputBase*> inputs = buildInputs(kit, kStudioInputs<InputS1M1, InputS1M2, InputS1M3>);
    FieldMixerS1M1* mixes = buildMixers(kit, kRouting, kStudioMixers<MixerS1M3, MixerS1M2>);
    addEffects(kit);
    buildLoopbacks(kit, kRouting, *mixes, makeStrip<LoopbackBase, LoopbackS1M1>);
    buildOutputs(kit, kRouting, *mixes, kStudioOutputs<OutputS1M1, OutputS1M1>);

    kit.addMenu(new R47_PrivateWidget2(u"ConfigMenuLive"_s));
    kit.addEqualizer(inputs[0], ConsoleLinks::In1);
    kit.addDucking(inputs[0]);
    kit.addEqualizer(inputs[1], ConsoleLinks::In2);
    kit.addDucking(inputs[1]);
    auto* microphones = mixes->findChild<MixerS1M3*>();
    linkBalance(kit, inputs[0], microphones, &MixerS1M3::setBalanceLeft);
    linkBalance(kit, inputs[1], microphones, &MixerS1M3::setBalanceRight);
}

} // namespace quillon
