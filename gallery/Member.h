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

/// How a control is shown as touched by a hand as well, in its first look.
enum class Touched { No, ByKeyboard, Yes };

/// The font of the controls.
QFont controlFont();

/// A row of the gallery. Each control gets its name, language and font before its look prepares it.
template<typename Control>
Member member(
    const char* className, QSize size, const QList<Look<Control>>& looks, Touched touched = Touched::Yes,
    const std::function<Control*()>& build = [] { return new Control(nullptr); })
{
    Member row{className, size, {}};
    const auto add = [&row, &build](const Look<Control>& look, const Words& state, Touch touch) {
        Exhibit exhibit{state, touch, {}, {}};
        exhibit.make = [look, build](const Setting& setting, const QString& name) -> QWidget* {
            Control* control = build();
            control->setObjectName(name);
            control->setFont(controlFont());
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
    if (touched == Touched::Yes)
        add(looks.first(), {"Hover", "悬停"}, Touch::Hover);
    if (touched != Touched::No)
        add(looks.first(), {"Focus", "焦点"}, Touch::Focus);
    if (touched == Touched::Yes)
        add(looks.first(), {"Disabled", "停用"}, Touch::Disabled);
    return row;
}

} // namespace quillon::gallery
