#pragma once
// Three mixer strips of one member in their field with two mixes, with an open workspace.

#include "StripBench.h"
#include "resources/Resources.h"
#include "strips/field/FieldMixerS1M1.h"
#include "strips/mixer/MixerS1M1.h"
#include "strips/mixer/MixerS1M2.h"
#include "strips/mixer/MixerS1M3.h"
#include "strips/mixer/MixerS1M4.h"

#include "controls/VSliderS1M1.h"

#include <QPushButton>

namespace bench
{

using namespace Qt::StringLiterals;

inline std::unique_ptr<MixerBase> makeMixer(const QString& member, const QString& objectName)
{
    quillon::initResources();
    if (member == u"S1M1") {
        return std::make_unique<MixerS1M1>(objectName);
    }
    if (member == u"S1M2") {
        return std::make_unique<MixerS1M2>(objectName);
    }
    return member == u"S1M3" ? std::unique_ptr<MixerBase>(new MixerS1M3(objectName)) : std::make_unique<MixerS1M4>(objectName);
}

/// The third strip stands in the first mix only.
struct MixerPage {
    explicit MixerPage(const QString& member)
    {
        for (const QString& name : {u"AUX"_s, u"BT"_s, u"FX"_s}) {
            strips.push_back(makeMixer(member, u"Mixer_"_s + name));
            MixerBase* strip = strips.back().get();
            strip->setChannelName(name);
            QObject::connect(strip, &MixerBase::attributeChanged, strip,
                             [this](const QString& object, const QString& attribute, const QString& value) {
                                 if (attribute.contains(u"_Gain")) {
                                     device[object + u'/' + attribute] = value.toInt();
                                     sent += object + u'/' + attribute;
                                 }
                             });
            workspace.attach(*strip);
            list += strip;
        }
        workspace.attach(field);
        field.setMixTable({{u"MixA"_s, u"Mix A"_s, Qt::green, {u"AUX"_s, u"BT"_s, u"FX"_s}},
                           {u"MixB"_s, u"Mix B"_s, Qt::blue, {u"AUX"_s, u"BT"_s}}});
        field.setWidgetList(list);
        field.resize(900, 660);
        field.show();
        load();
    }
    ~MixerPage()
    {
        for (const auto& strip : strips) {
            strip->setParent(nullptr);
        }
    }
    void load()
    {
        sent.clear();
        field.loadSettings();
        for (MixerBase* strip : list) {
            strip->loadSettings();
        }
    }
    template<class Widget = QWidget> Widget* child(qsizetype i, const QString& name) const
    {
        return list[i]->findChild<Widget*>(name);
    }
    /// The button of a side: "", "2" and "3" are the groups of the linked form, of left and of right.
    QPushButton* button(qsizetype i, int group, const char* name) const
    {
        auto* panel = child(i, u"widgetPushButtonGroup%1"_s.arg(group));
        return panel ? panel->findChild<QPushButton*>(u"PushButton"_s + QLatin1StringView(name)) : nullptr;
    }
    void select(const QString& mix) { emit field.attributeChanged(u"Mixer_All"_s, u"Mixer"_s, mix); }
    QList<int> gains(qsizetype i, const QString& mix) const
    {
        QList<int> all;
        for (const char* gain : {"MLCL", "MLCR", "MRCL", "MRCR"}) {
            all += device.value(list[i]->objectName() + u'/' + mix + u"_Gain"_s + QLatin1StringView(gain), -1);
        }
        return all;
    }

    bench::OpenWorkspace workspace;
    std::vector<std::unique_ptr<MixerBase>> strips;
    QList<MixerBase*> list;
    FieldMixerS1M1 field{u"FieldMixer"_s};
    QMap<QString, int> device;
    QStringList sent;
};

} // namespace bench
