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

} // namespace

void buildProPage(PageKit& kit)
{
    const QList<InputBase*> inputs = buildInputs(kit, kStudioInputs<InputS1M4, InputS1M5, InputS1M6>);
    FieldMixerS1M1* mixes = buildMixers(kit, kRouting, kStudioMixers<MixerS1M4, MixerS1M4>);
    buildLoopbacks(kit, kRouting, *mixes, makeStrip<LoopbackBase, LoopbackS1M2>);
    const QList<OutputBase*> outputs = buildOutputs(kit, kRouting, *mixes, kStudioOutputs<OutputS1M4, OutputS1M3>);

    kit.addMenu(new R47_PrivateWidget5(u"ConfigMenuProf"_s));
    kit.addEqualizer(inputs[0], ConsoleLinks::In1);
    kit.addEqualizer(inputs[1], ConsoleLinks::In2);
    auto* headphones = static_cast<OutputS1M4*>(outputs[0]);
    kit.addEqualizer(headphones, ConsoleLinks::Headphones);
    // Its equalizer reports the same two levels.
    kit.report(u"EQ_HP", u"MeterLeft", headphones->deviceSetter(u"MeterLeft"));
    kit.report(u"EQ_HP", u"MeterRight", headphones->deviceSetter(u"MeterRight"));
}

} // namespace quillon
