#pragma once
// The gallery as data: a member of a family is a row, a row is a class and the looks in which it is shown.

#include <QFont>
#include <QList>
#include <QSize>
#include <QString>
#include <QWidget>

#include <functional>

namespace quillon::gallery
{

/// A text in both languages, in UTF-8.
struct Words {
    const char* english;
    const char* chinese;

    QString in(const QString& language) const { return QString::fromUtf8(language == u"Chinese" ? chinese : english); }
};

/// How the whole gallery is shown at present.
struct Setting {
    QString language; ///< "English" or "Chinese"
    double scale = 1; ///< 1 to 2
};

/// What the meters are fed with: tenths of a dB, 1 is clip; the gain in whole dB.
struct Levels {
    int left = -600;
    int right = -600;
    int gainDb = 0;
};

/// What a hand does to a control.
enum class Touch { None, Hover, Focus, Disabled };

constexpr Words touchWords(Touch touch)
{
    constexpr Words kWords[]{{"Normal", "普通"}, {"Hover", "悬停"}, {"Focus", "焦点"}, {"Disabled", "停用"}};
    return kWords[static_cast<int>(touch)];
}

/// One control in one state.
struct Exhibit {
    Words state;
    Touch touch = Touch::None;
    /// Makes the control under its accessible name; nobody owns it yet.
    std::function<QWidget*(const Setting&, const QString& name)> make;
    /// Shows levels; empty where nothing moves.
    std::function<void(QWidget&, const Levels&)> feed;
};

/// All looks of a class; size is that of one control at scale 1.
struct Member {
    const char* className;
    QSize size;
    QList<Exhibit> exhibits;
};

struct Family {
    Words title;
    const char* file; ///< of its pictures
    QList<Member> (*members)();
};

QList<Member> meterMembers();
QList<Member> dialMembers();
QList<Member> sliderMembers();
QList<Member> buttonMembers();
QList<Member> smallMembers();
QList<Member> boxMembers();

/// The pages, in their order.
inline constexpr Family kFamilies[]{
    {{"Meters", "电平表"}, "meters", meterMembers},        {{"Dials", "旋钮"}, "dials", dialMembers},
    {{"Sliders", "推子"}, "sliders", sliderMembers},       {{"Buttons", "按钮"}, "buttons", buttonMembers},
    {{"Small controls", "小控件"}, "small", smallMembers}, {{"Boxes", "对话框"}, "boxes", boxMembers},
};

/// A state of a class: how a new control is brought into it, and how it is kept there.
template<typename Control> struct Look {
    using Prepare = std::function<void(Control&)>;
    using Feed = std::function<void(Control&, const Levels&)>;

    Look(const Words& words, Prepare how, Feed keep = nullptr) : state(words), prepare(std::move(how)), feed(std::move(keep)) {}

    Words state;
    Prepare prepare;
    Feed feed;
};

/// The font of the controls; most fit its size themselves.
QFont controlFont(const Setting& setting);

/// A row of the gallery. Each control gets its language and font before its look prepares it, and its name after that. Its first
/// look is shown as touched by a hand as well.
template<typename Control>
Member member(
    const char* className, QSize size, const QList<Look<Control>>& looks,
    const QList<Touch>& touches = {Touch::Hover, Touch::Focus, Touch::Disabled},
    const std::function<Control*(const Setting&)>& build = [](const Setting&) { return new Control(nullptr); })
{
    Member row{className, size, {}};
    const auto add = [&row, &build](const Look<Control>& look, const Words& state, Touch touch) {
        Exhibit exhibit{state, touch, {}, {}};
        exhibit.make = [look, build](const Setting& setting, const QString& name) -> QWidget* {
            Control* control = build(setting);
            control->setObjectName(name);
            control->setFont(controlFont(setting));
            if constexpr (requires { control->setLanguage(setting.language); })
                control->setLanguage(setting.language);
            if (look.prepare)
                look.prepare(*control);
            control->setAccessibleName(name); // last: boxes name themselves
            return control;
        };
        if (look.feed)
            exhibit.feed = [feed = look.feed](QWidget& control, const Levels& levels) {
                feed(static_cast<Control&>(control), levels);
            };
        row.exhibits << exhibit;
    };
    for (const Look<Control>& look : looks)
        add(look, look.state, Touch::None);
    for (const Touch touch : touches)
        add(looks.first(), touchWords(touch), touch);
    return row;
}

} // namespace quillon::gallery
