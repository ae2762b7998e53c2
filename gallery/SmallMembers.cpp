#include "controls/BatteryS1M1.h"
#include "controls/ButtonBoxS1M1.h"
#include "controls/CircleS1M1.h"
#include "controls/ComboBoxS1M2.h"
#include "controls/ComboBoxS1M3.h"
#include "controls/MenuS1M1.h"
#include "controls/ToolButtonS1M1.h"
#include "gallery/Member.h"

#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillon::gallery
{

namespace
{

Member circle()
{
    const auto in = [](const Words& state, CircleS1M1::Mode mode, float value = 0) {
        return Look<CircleS1M1>{state, [mode, value](CircleS1M1& circle) {
                                    circle.setMode(mode);
                                    circle.setValue(value);
                                }};
    };
    return member<CircleS1M1>("CircleS1M1", {104, 104},
                              {in({"Ready", "就绪"}, CircleS1M1::Ready), in({"Counting", "计时"}, CircleS1M1::Counting, 11),
                               in({"Nearly done", "将完成"}, CircleS1M1::Counting, 2), in({"Done", "完成"}, CircleS1M1::Done),
                               in({"Failed", "失败"}, CircleS1M1::Failed)},
                              {});
}

Member buttonBox()
{
    const auto naming = [](ButtonBoxS1M1& box) { box.setNames({u"IN 1"_s, u"IN 2"_s, u"AUX"_s, u"BT"_s}); };
    return member<ButtonBoxS1M1>("ButtonBoxS1M1", {90, 220},
                                 {{{"Closed", "收起"}, naming}, {{"Opened", "展开"}, [naming](ButtonBoxS1M1& box) {
                                                                     naming(box);
                                                                     QMetaObject::invokeMethod(&box, "in_mButtonAddition_clicked");
                                                                 }}});
}

QStringList rates()
{
    return {u"44.1 kHz"_s, u"48 kHz"_s, u"96 kHz"_s, u"192 kHz"_s};
}

Member capsule()
{
    const auto of = [](const Words& state, const QStringList& items) {
        return Look<ComboBoxS1M2>{state, [items](ComboBoxS1M2& box) { box.setItems(items, u"48 kHz"_s); }};
    };
    return member<ComboBoxS1M2>("ComboBoxS1M2", {120, 28}, {of({"Chosen", "已选"}, rates()), of({"Empty", "空"}, {})});
}

Member aligned()
{
    const auto of = [](const Words& state, const QColor& colour) {
        return Look<ComboBoxS1M3>{state, [colour](ComboBoxS1M3& box) {
                                      box.addItems({u"Low shelf"_s, u"Bell"_s, u"Notch"_s, u"High shelf"_s});
                                      box.setCurrentIndex(1);
                                      box.setTextColour(colour);
                                  }};
    };
    return member<ComboBoxS1M3>("ComboBoxS1M3", {120, 28},
                                {of({"White", "白色"}, Qt::white), of({"Coloured", "彩色"}, {67, 207, 124})});
}

Member toolButton()
{
    const auto at = [](const Words& state, const QString& current, const QColor& colour) {
        return Look<ToolButtonS1M1>{state, [current, colour](ToolButtonS1M1& button) {
                                        for (const QString& rate : rates())
                                            button.addItem(u"PCM"_s, rate);
                                        button.setCurrentItem(current);
                                        button.setTextColour(colour);
                                    }};
    };
    return member<ToolButtonS1M1>("ToolButtonS1M1", {120, 28},
                                  {at({"Chosen", "已选"}, u"48 kHz"_s, {216, 216, 216}),
                                   at({"Nothing chosen", "未选"}, {}, {216, 216, 216}),
                                   at({"Coloured", "彩色"}, u"96 kHz"_s, {67, 207, 124})});
}

Member menu()
{
    const auto of = [](const Words& state, bool checkable) {
        return Look<MenuS1M1>{
            state, [checkable](MenuS1M1& menu) {
                menu.setTitle(u"R47"_s);
                menu.setHeightPercents(30, 70);
                for (const QString& item : {u"Live"_s, u"Studio"_s, u"Stream"_s})
                    menu.addItem({item, item, checkable}, {{u"A"_s, u"1"_s}, {u"B"_s, u"2"_s}, {u"C"_s, u"3"_s, false}});
                if (checkable)
                    menu.item(u"Studio"_s)->setChecked(true);
            }};
    };
    return member<MenuS1M1>("MenuS1M1", {150, 140}, {of({"Checked", "已选"}, true), of({"Plain", "普通"}, false)});
}

Member battery()
{
    const auto at = [](const Words& state, int level, bool charging, int segments = 0, bool text = false) {
        return Look<BatteryS1M1>{state, [=](BatteryS1M1& battery) {
                                     if (segments > 0)
                                         battery.setDrawStrategy(
                                             new SegmentedBlinkStrategy(&battery, quint32(segments), 0.06, 500));
                                     battery.setShowText(text);
                                     battery.setLevel(level);
                                     battery.setCharging(charging);
                                 }};
    };
    return member<BatteryS1M1>("BatteryS1M1", {90, 50},
                               {at({"Full", "满"}, 100, false), at({"Half, text", "一半，文字"}, 50, false, 0, true),
                                at({"Low", "低"}, 9, false), at({"Critical", "极低"}, 5, false), at({"Charging", "充电"}, 40, true),
                                at({"Segments", "分段"}, 60, false, 4), at({"Blinking", "闪烁"}, 60, true, 4),
                                at({"Empty", "空"}, 0, false, 4)},
                               {});
}

} // namespace

QList<Member> smallMembers()
{
    return {capsule(), aligned(), toolButton(), menu(), battery(), circle(), buttonBox()};
}

} // namespace quillon::gallery
