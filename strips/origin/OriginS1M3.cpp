#include "strips/origin/OriginS1M3.h"

#include "strips/ButtonPanel.h"
#include "strips/CaptionLabel.h"
#include "strips/PanelRows.h"
#include "strips/SectionFrame.h"

using namespace Qt::StringLiterals;

namespace
{

using quillon::PlateStyle;

constexpr quillon::PanelButton kDuck[]{{.name = "DuckingSwitch", .english = "DUCKING", .chinese = "闪避"}};
constexpr quillon::PanelButton kConfig[]{{.name = "User1", .english = "User1", .chinese = "用户1", .exclusive = true},
                                         {.name = "User2", .english = "User2", .chinese = "用户2", .exclusive = true},
                                         {.name = "Save", .english = "Save", .chinese = "保存", .momentary = true},
                                         {.name = "Load", .english = "Load", .chinese = "调用", .momentary = true}};
constexpr quillon::PanelButton kWays[]{
    {.name = "Professional", .english = "Professional", .chinese = "专业模式", .momentary = true},
    {.name = "RouterManuals", .english = "Router Manuals", .chinese = "路由说明"}};
constexpr quillon::PanelShape kDuckPanel{"Duck", PlateStyle::Flat, false, 104, 20, 1, kDuck};
constexpr quillon::PanelShape kConfigPanel{"Config", PlateStyle::Flat, false, 104, 46, 2, kConfig};
constexpr quillon::PanelShape kWaysPanel{"Ways", PlateStyle::Flat, false, 120, 41, 1, kWays};

} // namespace

OriginS1M3::OriginS1M3(const QString& objectName, QWidget* parent)
    : OriginBase({130, 220}, objectName, parent), mDuck(addButtons(kDuckPanel, "Duck", {10.0F, 21.0F, 80.0F, 0.0F})),
      mConfig(addButtons(kConfigPanel, "Config", {10.0F, 47.0F, 80.0F, 0.0F}))
{
    addButtons(kWaysPanel, "widgetWays", {4.0F, 75.0F, 92.0F, 0.0F});
    for (const quillon::Place& place : {quillon::Place{4.0F, 11.0F, 92.0F, 22.0F}, {4.0F, 36.5F, 92.0F, 34.5F}}) {
        auto* frame = new quillon::SectionFrame(this);
        body().adopt(frame, "frameSection", place);
        frame->stackUnder(mDuck.widget);
    }
    addCaption("labelDuck", {10.0F, 13.0F, 80.0F, 6.5F}, {"Duck", "闪避"});
    addCaption("labelConfig", {10.0F, 39.0F, 80.0F, 6.5F}, {"Config", "配置"});
    mConfig.set(u"User1"_s, true, false);
    mDuckRow = engine().add(quillon::switchRow(mDuck, u"DuckingSwitch"_s));
}

quillon::PanelPort OriginS1M3::addButtons(const quillon::PanelShape& shape, const char* childName, const quillon::Place& place)
{
    auto* panel = new quillon::ButtonPanel(shape, this);
    quillon::PanelPort port = quillon::panelPort(panel);
    body().adopt(port, childName, place);
    connect(panel, &quillon::ButtonPanel::stateChanged, this, &OriginS1M3::pressed);
    return port;
}

void OriginS1M3::pressed(const QString& button, const QString& state)
{
    if (button == "DuckingSwitch"_L1) {
        engine().changed(mDuckRow);
    } else if (button == "Load"_L1 || button == "Save"_L1) {
        raise(button + u" preset"_s + (mConfig.isOn(u"User2"_s) ? u'2' : u'1'), u"1"_s);
    } else if (button == "Professional"_L1) {
        raise(button, u"1"_s);
    } else if (button == "RouterManuals"_L1) {
        raise(button, state == "1"_L1 ? u"ON"_s : u"OFF"_s);
    }
}
