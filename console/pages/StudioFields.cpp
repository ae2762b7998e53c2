#include "console/pages/StudioFields.h"

#include "console/pages/Sources.h"
#include "strips/field/FieldInputS1M1.h"
#include "strips/field/FieldLoopbackS1M1.h"
#include "strips/field/FieldMixerS1M1.h"
#include "strips/field/FieldOutputS1M1.h"
#include "strips/input/InputBase.h"
#include "strips/loopback/LoopbackBase.h"
#include "strips/mixer/MixerBase.h"
#include "strips/output/OutputBase.h"

#include <QColor>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

struct MixRow {
    const char* key;
    const char* name;
    const char* colour;
    bool (*shows)(QLatin1StringView channelName);
};

constexpr MixRow kMixes[]{
    {"MixA", "Mix A", "#43CF7C", [](QLatin1StringView) { return true; }},
    {"MixB", "Mix B", "#00AAFF", [](QLatin1StringView name) { return name != "OTG IN"_L1; }},
    {"MixC", "Mix C", "#FFEB3B", [](QLatin1StringView name) { return name == "IN 1+2"_L1 || name == "AUX"_L1 || name == "BT"_L1; }},
    {"MixD", "Mix D", "#FF4C00", [](QLatin1StringView) { return false; }},
    {"MixE", "Mix E", "#C267E6", [](QLatin1StringView) { return false; }},
};

struct LoopbackRow {
    const char* object;
    const char* channelName;
    const char16_t* source;
};

constexpr LoopbackRow kLoopbacks[]{{"Loopback_LB12", "Loopback 1/2", u"Mix A"},
                                   {"Loopback_LB34", "Loopback 3/4", u"Mix B"},
                                   {"Loopback_LB56", "Loopback 5/6", u"Mix C"},
                                   {"Loopback_LB78", "Loopback 7/8", u"IN 1+2"}};

/// Menu, default and colour of the source.
template<class Strip>
void addSource(PageKit& kit, Strip* strip, const Routing& routing, const FieldMixerS1M1& mixes, const char16_t* source)
{
    fillSourceMenu(*strip, routing.mixes, routing.effect);
    strip->setAudioSourceDefault(QStringView(source).toString());
    kit.link(strip, u"AudioSource"_s, [strip, &mixes](const QString& chosen) { strip->setAccentColour(mixes.colourOf(chosen)); });
}

} // namespace

QList<InputBase*> buildInputs(PageKit& kit, std::span<const InputRow> rows)
{
    auto* field = kit.addField(ConsolePage::Left, new FieldInputS1M1(u"FieldInput"_s));
    QList<InputBase*> strips;
    for (const InputRow& row : rows) {
        InputBase* strip = kit.add(row.make(QString::fromLatin1(row.object)), {&DeviceR47::in_fieldInput_attributeChanged});
        strip->setChannelName(QString::fromLatin1(row.channelName)).setGainDefault(row.gainDefaultDb);
        strip->setUnmuteOnGain(true).setSaveEvents(false).setNameEditable(true);
        strips += strip;
    }
    field->setWidgetList(strips);
    // One socket carries both directions of OTG: its plug is reported with the output and concerns the input as well.
    kit.report(u"Output_OTGOUT", u"Plug", strips.last()->deviceSetter(u"Plug"));
    return strips;
}

FieldMixerS1M1* buildMixers(PageKit& kit, const Routing& routing, std::span<const MixerRow> rows)
{
    auto* field = kit.addField(ConsolePage::Right, new FieldMixerS1M1(u"FieldMixer"_s));
    const auto isEffect = [](const MixerRow& row) { return row.levelObject && QStringView(row.levelObject) == u"Effect"; };
    const auto isThere = [&](const MixerRow& row) { return routing.effect || !isEffect(row); };
    Mixes mixes;
    for (const MixRow& mix : std::span(kMixes).first(static_cast<std::size_t>(routing.mixes))) {
        QStringList visible;
        for (const MixerRow& row : rows) {
            if (isThere(row) && mix.shows(QLatin1StringView(row.channelName))) {
                visible += QString::fromLatin1(row.channelName);
            }
        }
        mixes.push_back({.key = QString::fromLatin1(mix.key),
                         .name = QString::fromLatin1(mix.name),
                         .colour = QColor(QLatin1StringView(mix.colour)),
                         .visible = visible});
    }
    field->setMixTable(mixes);
    QList<MixerBase*> strips;
    for (const MixerRow& row : rows) {
        if (!isThere(row)) {
            continue;
        }
        MixerBase* strip = kit.add(row.make(QString::fromLatin1(row.object)), {&DeviceR47::in_fieldMixer_attributeChanged});
        strip->setChannelName(QString::fromLatin1(row.channelName));
        strip->setSaveEvents(false).setNameEditable(true);
        if (row.levelObject) {
            kit.report(row.levelObject, isEffect(row) ? u"MeterOut" : u"MeterLeft", strip->deviceSetter(u"MeterLeft"));
            kit.report(row.levelObject, isEffect(row) ? u"MeterOut" : u"MeterRight", strip->deviceSetter(u"MeterRight"));
        } else {
            kit.report(u"EQ_IN1", u"Meter", strip->deviceSetter(u"MeterLeft"));
            kit.report(u"EQ_IN2", u"Meter", strip->deviceSetter(u"MeterRight"));
        }
        strips += strip;
    }
    field->setWidgetList(strips);
    return field;
}

QList<LoopbackBase*> buildLoopbacks(PageKit& kit, const Routing& routing, const FieldMixerS1M1& mixes,
                                    LoopbackBase* (*make)(const QString& objectName))
{
    auto* field = kit.addField(routing.loopbacks, new FieldLoopbackS1M1(u"FieldLoopback"_s));
    QList<LoopbackBase*> strips;
    for (const LoopbackRow& row : kLoopbacks) {
        LoopbackBase* strip = kit.add(make(QString::fromLatin1(row.object)), {&DeviceR47::in_fieldLoopback_attributeChanged});
        strip->setChannelName(QString::fromLatin1(row.channelName)).setSaveEvents(false).setNameEditable(true);
        strip->setUnmuteOnGain(true);
        addSource(kit, strip, routing, mixes, row.source);
        reportSourceLevels(kit, *strip);
        strips += strip;
    }
    field->setWidgetList(strips);
    return strips;
}

QList<OutputBase*> buildOutputs(PageKit& kit, const Routing& routing, const FieldMixerS1M1& mixes, std::span<const OutputRow> rows)
{
    auto* field = kit.addField(routing.outputs, new FieldOutputS1M1(u"FieldOutput"_s));
    QList<OutputBase*> strips;
    for (const OutputRow& row : rows) {
        OutputBase* strip = kit.add(row.make(QString::fromLatin1(row.object)), {&DeviceR47::in_fieldOutput_attributeChanged});
        strip->setChannelName(QString::fromLatin1(row.channelName)).setSaveEvents(false).setNameEditable(true);
        strip->setGainRange(row.scale).setGainDefault(row.gainDefaultDb).setUnmuteOnGain(true);
        addSource(kit, strip, routing, mixes, row.source);
        strips += strip;
    }
    field->setWidgetList(strips);
    return strips;
}

} // namespace quillon
