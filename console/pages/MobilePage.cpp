#include "console/menu/R47_PrivateWidget2.h"
#include "console/pages/Pages.h"
#include "console/pages/SimpleStrips.h"
#include "strips/effect/EffectS1M3.h"
#include "strips/effect/EffectS1M4.h"
#include "strips/field/FieldEffectS1M1.h"
#include "strips/field/FieldOriginS1M1.h"
#include "strips/origin/OriginS1M10.h"
#include "strips/origin/OriginS1M11.h"
#include "strips/origin/OriginS1M12.h"
#include "strips/origin/OriginS1M13.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr float kSilenceDb = -90;

constexpr auto kInput = &DeviceR47::in_fieldInput_attributeChanged;
constexpr auto kOutput = &DeviceR47::in_fieldOutput_attributeChanged;

/// The routing of this mode is the device's own, so there is no source to choose.
OriginBase* makeOutput(const QString& objectName)
{
    auto* strip = new OriginS1M13(objectName);
    strip->setAudioSourceVisible(false);
    return strip;
}

constexpr SimpleRow kInputs[]{
    {"Input_IN1", "IN1", "输入1", makeSimple<OriginS1M10>, kInput, scaleMicrophone, 26, nullptr},
    {"Input_IN2", "IN2", "输入2", makeSimple<OriginS1M11>, kInput, scaleMicrophone, 26, nullptr},
    {"Input_AUX", "AUX", nullptr, makeSimple<OriginS1M12>, kInput, scaleAux, 0, nullptr},
    {"Input_BT", "BT", nullptr, makeSimple<OriginS1M12>, kInput, scaleLine, -6, nullptr},
    {"Input_OTGIN", "OTG IN", nullptr, makeSimple<OriginS1M12>, kInput, scaleLine, 0, nullptr},
    {"Input_PB12", "Playback 1/2", nullptr, makeSimple<OriginS1M12>, kInput, scalePlayback, 0, u"Playback 1/2"},
};

constexpr SimpleRow kOutputs[]{
    {"Output_HP", "HP OUT", nullptr, makeOutput, kOutput, scaleAux, -38, nullptr},
    {"Output_OTGOUT", "OTG OUT", nullptr, makeOutput, kOutput, scaleLine, 0, nullptr},
    {"Output_LB12", "Recording", "录音", makeOutput, kOutput, scaleRecord, 0, u"Playback 3/4"},
};

/// A strip that the device knows as a loopback: its gain is that of both sides, and its mute is silence.
void linkToLoopback(PageKit& kit, PlainStrip* strip, const QString& loopback)
{
    static_cast<OriginBase*>(strip)->setMuteGain(kSilenceDb);
    QObject::connect(strip, &PlainStrip::attributeChanged, &kit.device(),
                     [&device = kit.device(), loopback](const QString&, const QString& attribute, const QString& value) {
                         if (attribute.startsWith("GAIN"_L1)) {
                             device.in_fieldLoopback_attributeChanged(loopback, u"GAINLeft"_s, value);
                             device.in_fieldLoopback_attributeChanged(loopback, u"GAINRight"_s, value);
                         }
                     });
}

void addEffects(PageKit& kit)
{
    auto* field = kit.addField(ConsolePage::Left, new FieldEffectS1M1(u"FieldEffect"_s));
    auto* noise = kit.add(new EffectS1M3(u"Effect_NC"_s), {&DeviceR47::in_fieldEffect_attributeChanged});
    auto* reverb = kit.add(new EffectS1M4(u"Effect_Reverb"_s), {&DeviceR47::in_fieldEffect_attributeChanged});
    noise->setChannelName(u"NC"_s);
    reverb->setChannelName(u"Reverb"_s);
    field->setWidgetList({noise, reverb});
    kit.report(u"Effect", u"NoiseReductionType", noise->deviceSetter(u"NoiseReductionType"));
    kit.report(u"Effect", u"ReverbType", reverb->deviceSetter(u"ReverbType"));
    kit.report(u"Effect", u"DryWet", reverb->deviceSetter(u"DryWet"));
}

} // namespace

void buildMobilePage(PageKit& kit)
{
    auto* field = kit.addField(ConsolePage::Top, new FieldOriginS1M1(u"FieldInput"_s, {"Input", "输入"}));
    const QList<PlainStrip*> inputs = addSimpleStrips(kit, kInputs);
    field->setWidgetList(inputs);
    addEffects(kit);
    auto* outputField = kit.addField(ConsolePage::Right, new FieldOriginS1M1(u"FieldOutput"_s, {"Output", "输出"}));
    const QList<PlainStrip*> outputs = addSimpleStrips(kit, kOutputs);
    outputField->setWidgetList(outputs);

    kit.addMenu(new R47_PrivateWidget2(u"ConfigMenuMble"_s));
    kit.addEqualizer(static_cast<OriginBase*>(inputs[0]), ConsoleLinks::In1);
    kit.addDucking(static_cast<OriginBase*>(inputs[0]));
    kit.addEqualizer(static_cast<OriginBase*>(inputs[1]), ConsoleLinks::In2);
    kit.addDucking(static_cast<OriginBase*>(inputs[1]));
    kit.report(u"Output_OTGOUT", u"Plug", inputs[4]->deviceSetter(u"Plug"));
    linkToLoopback(kit, inputs.last(), u"Loopback_LB34"_s);
    linkToLoopback(kit, outputs.last(), u"Loopback_LB12"_s);
}

} // namespace quillon
