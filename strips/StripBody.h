#pragma once

#include "strips/ControlPorts.h"
#include "strips/StripHead.h"
#include "strips/StripLayout.h"

#include <functional>
#include <vector>

namespace quillon
{

/// A text in both languages.
struct StripText {
    const char* english;
    const char* chinese;

    QString in(bool isChinese) const { return QString::fromUtf8(isChinese ? chinese : english); }
};

/// The looks of a strip: its head, and its controls with their places, fonts, languages and accessible names. Held by the strip.
/// GUI thread.
class StripBody
{
public:
    explicit StripBody(QWidget* strip);

    StripHead& head() { return mHead; }
    const StripHead& head() const { return mHead; }

    /// Takes a control in: its object name and its place.
    void adopt(QWidget* child, const char* objectName, const Place& place);
    /// The same, for controls that follow the font, the language and the strip's name.
    void adopt(const PanelPort& port, const char* objectName, const Place& place);
    void adopt(const ValuePort& port, const char* objectName, const Place& place, const StripText& meaning);
    void adopt(const MeterPort& port, const char* objectName, const Place& place, const StripText& meaning = {"Level", "电平"});
    /// Gives a control another place, from the next layout on.
    void setPlace(const QWidget* child, const Place& place);
    /// Runs with each font and each change of language, for what has no port.
    void onFont(std::function<void(const QFont&)> apply) { mFonts.push_back(std::move(apply)); }
    void onLanguage(std::function<void(const QString&)> apply) { mLanguages.push_back(std::move(apply)); }

    void setChannelName(const QString& name);
    void setFont(const QFont& font);
    /// "English" or "Chinese" of the setting "Language"; anything else changes nothing.
    void onAppSettingsChanged(const QString& attribute, const QString& value);
    bool isChinese() const { return mLanguage == QLatin1String("Chinese"); }
    /// Call when the head shows another name: accessible names begin with it.
    void rename();
    /// Call on each resize of the strip.
    void layout();

private:
    void adoptNamed(QWidget* child, const char* objectName, const Place& place, const StripText& meaning);

    struct Child {
        QWidget* widget;
        Place place;
        StripText meaning;
    };

    QWidget* mStrip;
    StripHead mHead;
    std::vector<Child> mChildren;
    std::vector<std::function<void(const QFont&)>> mFonts;
    std::vector<std::function<void(const QString&)>> mLanguages;
    std::vector<std::function<void(const QString&)>> mNames;
    QString mLanguage;
    QString mNaming; // what the accessible names were last made of
};

} // namespace quillon
