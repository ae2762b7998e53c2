#pragma once
// Five real input strips in their field, with an open workspace, as the Live page has them.

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
    LiveInputs()
    {
        const char16_t* rows[][3] = {{u"S1M1", u"Input_IN1", u"IN 1"},
                                     {u"S1M2", u"Input_IN2", u"IN 2"},
                                     {u"S1M3", u"Input_AUX", u"AUX"},
                                     {u"S1M3", u"Input_BT", u"BT"},
                                     {u"S1M3", u"Input_OTGIN", u"OTG IN"}};
        for (const auto& row : rows) {
            strips.push_back(makeInput(row[0], QString::fromUtf16(row[1]), QString::fromUtf16(row[2])));
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
    void hide(qsizetype i) { emit list[i]->attributeChanged(list[i]->channelName(), QStringLiteral("Hide"), QStringLiteral("1")); }
    /// As the add box does it.
    void add(const QString& name)
    {
        QMetaObject::invokeMethod(&field, "in_mWidgetAddition_attributeChanged", Q_ARG(QString, name),
                                  Q_ARG(QString, QStringLiteral("Visible")), Q_ARG(QString, QStringLiteral("1")));
    }

    OpenWorkspace workspace;
    std::vector<std::unique_ptr<InputBase>> strips;
    QList<InputBase*> list;
    FieldInputS1M1 field{QStringLiteral("FieldInput")};
    Record record;
};

} // namespace bench
