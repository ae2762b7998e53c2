#include "console/pages/Pages.h"
#include "console/pages/SimpleStrips.h"
#include "strips/field/FieldOriginS1M1.h"
#include "strips/field/FieldOriginS1M2.h"
#include "strips/origin/OriginS1M1.h"
#include "strips/origin/OriginS1M2.h"
#include "strips/origin/OriginS1M3.h"
#include "strips/origin/OriginS1M4.h"
#include "strips/origin/OriginS1M6.h"
#include "strips/origin/OriginS1M7.h"
#include "strips/origin/OriginS1M8.h"
#include "strips/origin/OriginS1M9.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr auto kInput = &DeviceR47::in_fieldInput_attributeChanged;
constexpr auto kMixer = &DeviceR47::in_fieldMixer_attributeChanged;
constexpr auto kLoopback = &DeviceR47::in_fieldLoopback_attributeChanged;
constexpr auto kOutput = &DeviceR47::in_fieldOutput_attributeChanged;

constexpr SimpleRow kTop[]{
    {"Input_IN1", "IN1", nullptr, makeSimple<OriginS1M1>, kInput, scaleMicrophone, 26, nullptr},
    {"Input_IN2", "IN2", nullptr, makeSimple<OriginS1M2>, kInput, scaleMicrophone, 26, nullptr},
    {"Input_AUX", "AUX", nullptr, makeSimple<OriginS1M9>, kInput, scaleAux, 0, nullptr},
    {"Input_BT", "BT", nullptr, makeSimple<OriginS1M9>, kInput, scaleLine, -6, nullptr},
    {"Input_OTGIN", "OTG IN", nullptr, makeSimple<OriginS1M9>, kInput, scaleLine, 0, nullptr},
    {"Mixer_PB12", "Playback 1/2", nullptr, makeSimple<OriginS1M8>, kMixer, scalePlayback, 0, u"Playback 1/2"},
    {"Mixer_PB34", "Playback 3/4", nullptr, makeSimple<OriginS1M8>, kMixer, scalePlayback, 0, u"Playback 3/4"},
};

// The routing of this mode is fixed, so each of these shows the level of one mix; an output reports its own as well.
constexpr SimpleRow kBottom[]{
    {"Loopback_LB12", "Loopback 1/2", nullptr, makeSimple<OriginS1M7>, kLoopback, scaleRecord, 0, u"Mix A"},
    {"Output_HP", "HP", nullptr, makeSimple<OriginS1M6>, kOutput, scaleAux, -38, u"Mix B"},
    {"Output_OTGOUT", "OTG OUT", nullptr, makeSimple<OriginS1M6>, kOutput, scaleLine, 0, u"Mix C"},
};

/// The device has a gain for each side of an output, the strip one for both.
void linkBothSides(PageKit& kit, PlainStrip* strip)
{
    kit.link(strip, u"GAIN"_s, [&device = kit.device(), object = strip->objectName()](const QString& value) {
        device.in_fieldOutput_attributeChanged(object, u"GAINLeft"_s, value);
        device.in_fieldOutput_attributeChanged(object, u"GAINRight"_s, value);
    });
}

OriginBase* addMenu(PageKit& kit)
{
    auto* menu = new OriginS1M3(u"ConfigMenuTyro"_s);
    menu->setChannelName(u"ConfigMenu"_s).setSaveEvents(false);
    kit.add<OriginBase>(menu, {&DeviceR47::in_Others_attributeChanged});
    kit.link(menu, u"Professional"_s, [&links = kit.links()](const QString&) { links.showPage(PageLive); });
    kit.links().duckingLamps.push_back([menu](bool on) { menu->setDuckingSwitch(on); });
    return menu;
}

OriginBase* addEffect(PageKit& kit)
{
    auto* effect = new OriginS1M4(u"Effect"_s);
    effect->setChannelName(u"Effect"_s).setSaveEvents(false);
    return kit.addDeaf<OriginBase>(effect, {&DeviceR47::in_fieldEffect_attributeChanged, kMixer});
}

} // namespace

void buildEasyPage(PageKit& kit)
{
    auto* top = kit.addField(ConsolePage::Top, new FieldOriginS1M1(u"FieldTop"_s, {"Input", "输入"}));
    const QList<PlainStrip*> inputs = addSimpleStrips(kit, kTop);
    top->setWidgetList(inputs);

    auto* bottom = kit.addField(ConsolePage::Bottom, new FieldOriginS1M2(u"FieldBottom"_s, {}));
    QList<PlainStrip*> strips{addMenu(kit), addEffect(kit)};
    strips += addSimpleStrips(kit, kBottom);
    bottom->setWidgetList(strips);
    linkBothSides(kit, strips[3]);
    linkBothSides(kit, strips[4]);
}

} // namespace quillon
