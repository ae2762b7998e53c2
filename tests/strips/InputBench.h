#pragma once
// Real input strips in their field, with an open workspace: five as the Live page has them, or others.

#include "StripBench.h"
#include "resources/Resources.h"
#include "strips/field/FieldInputS1M1.h"
#include "strips/input/InputS1M1.h"
#include "strips/input/InputS1M2.h"
#include "strips/input/InputS1M3.h"
#include "strips/input/InputS1M4.h"
#include "strips/input/InputS1M5.h"
#include "strips/input/InputS1M6.h"

#include <QPushButton>

namespace bench
{

template<class Strip> std::unique_ptr<InputBase> makeMember(const QString& objectName, const QString& channel)
{
    auto strip = std::make_unique<Strip>(objectName);
    if constexpr (std::is_base_of_v<StereoInput, Strip>) {
        strip->setGainRange(quillon::scaleAux).setGainDefault(-6);
    } else {
        strip->setGainRange(0, 88).setGainDefault(26);
    }
    strip->setChannelName(channel).setUnmuteOnGain(true);
    return strip;
}

inline std::unique_ptr<InputBase> makeInput(QStringView member, const QString& objectName, const QString& channel)
{
    quillon::initResources();
    static constexpr std::unique_ptr<InputBase> (*kMembers[])(const QString&, const QString&){
        makeMember<InputS1M1>, makeMember<InputS1M2>, makeMember<InputS1M3>,
        makeMember<InputS1M4>, makeMember<InputS1M5>, makeMember<InputS1M6>};
    return kMembers[member.last().digitValue() - 1](objectName, channel);
}

inline QPushButton* button(const QWidget& strip, const char* name)
{
    return strip.findChild<QPushButton*>(QStringLiteral("PushButton") + QLatin1StringView(name));
}

class LiveInputs
{
public:
    explicit LiveInputs(const QStringList& members = {QStringLiteral("S1M1"), QStringLiteral("S1M2"), QStringLiteral("S1M3"),
                                                      QStringLiteral("S1M3"), QStringLiteral("S1M3")})
    {
        const char* names[][2] = {{"IN1", "IN 1"}, {"IN2", "IN 2"}, {"AUX", "AUX"}, {"BT", "BT"}, {"OTGIN", "OTG IN"}};
        for (const auto& name : names) {
            strips.push_back(makeInput(members[list.size()], QStringLiteral("Input_") + QLatin1StringView(name[0]),
                                       QString::fromLatin1(name[1])));
            workspace.attach(*strips.back());
            list += strips.back().get();
        }
        workspace.attach(field);
        field.setWidgetList(list);
        record.listen(&field);
    }
    ~LiveInputs()
    {
        for (const auto& strip : strips) {
            strip->setParent(nullptr); // strips are not the field's
        }
    }
    void load()
    {
        field.loadSettings();
        for (InputBase* strip : list) {
            strip->loadSettings();
        }
    }
    void hide(qsizetype i) { bench::hide(list[i]); }
    void add(const QString& name) { bench::add(&field, name); }

    OpenWorkspace workspace;
    std::vector<std::unique_ptr<InputBase>> strips;
    QList<InputBase*> list;
    FieldInputS1M1 field{QStringLiteral("FieldInput")};
    Record record;
};

} // namespace bench
