#include "controls/PushButtonGroups.h"
#include "controls/PushButtons.h"
#include "gallery/Member.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::gallery
{

namespace
{

constexpr int kShownAlone = 4; // buttons; of more, half and half

/// Panels stand at about the size that strips give them, which is above the least.
QSize shownSize(const PanelShape& shape)
{
    constexpr double kWidth = 64;
    return QSize(shape.width, shape.height) * std::clamp(kWidth / shape.width, 1.8, 2.6);
}

template<typename Panel> Look<Panel> lit(const Words& state, const QList<const char*>& names)
{
    return {state, [names](Panel& panel) {
                for (const char* name : names)
                    panel.setState(QString::fromUtf8(name), u"1"_s, false);
            }};
}

/// Off, each button alone or half and half, and all that can be on together.
template<typename Panel> Member panel(const char* className, const PanelShape& shape)
{
    QList<Look<Panel>> looks{lit<Panel>(shape.selector ? Words{"None", "未选"} : Words{"Off", "关"}, {})};
    QList<const char*> some, others, all;
    for (const PanelButton& button : shape.buttons) {
        (all.size() % 2 == 0 ? some : others) << button.name;
        all << button.name;
        if (shape.buttons.size() <= kShownAlone)
            looks << lit<Panel>({button.name, button.name}, {button.name});
    }
    if (shape.buttons.size() > kShownAlone)
        looks << lit<Panel>({"Some on", "部分开"}, some) << lit<Panel>({"Others on", "其余开"}, others);
    if (!shape.selector && shape.buttons.size() > 1)
        looks << lit<Panel>({"All on", "全开"}, all);
    return member<Panel>(className, shownSize(shape), looks);
}

/// A row for each class, in the order of the shapes.
template<typename... Panel> void addPanels(QList<Member>& members, std::span<const PanelShape> shapes)
{
    std::size_t at = 0;
    ((members << panel<Panel>(Panel::staticMetaObject.className(), shapes[at]), ++at), ...);
}

Member single()
{
    const auto in = [](const Words& state, bool on, bool glowing) {
        return Look<PushButtonS1M15>{state, [on, glowing](PushButtonS1M15& button) {
                                         button.setText(u"REC"_s);
                                         button.setCheckable(true);
                                         button.setChecked(on);
                                         button.setShadowEnabled(glowing);
                                     }};
    };
    return member<PushButtonS1M15>(
        "PushButtonS1M15", {70, 32},
        {in({"Off", "关"}, false, false), in({"On", "开"}, true, false), in({"Glowing", "发光"}, true, true)});
}

} // namespace

QList<Member> buttonMembers()
{
    QList<Member> members;
    addPanels<PushButtonGroupS1M1, PushButtonGroupS1M2, PushButtonGroupS1M3, PushButtonGroupS1M4, PushButtonGroupS1M5,
              PushButtonGroupS1M6, PushButtonGroupS1M7, PushButtonGroupS1M8, PushButtonGroupS1M9, PushButtonGroupS1M10,
              PushButtonGroupS1M11, PushButtonGroupS1M12>(members, groupShapes());
    addPanels<PushButtonS1M1, PushButtonS1M2, PushButtonS1M3, PushButtonS1M4, PushButtonS1M5, PushButtonS1M6, PushButtonS1M7,
              PushButtonS1M8, PushButtonS1M9, PushButtonS1M10, PushButtonS1M11, PushButtonS1M12, PushButtonS1M13, PushButtonS1M14>(
        members, panelShapes());
    return members << single();
}

} // namespace quillon::gallery
