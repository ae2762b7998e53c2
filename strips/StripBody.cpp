#include "strips/StripBody.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr StripText kName{"Name", "名称"};
constexpr StripText kHide{"Hide", "隐藏"};

} // namespace

StripBody::StripBody(QWidget* strip) : mStrip(strip), mHead(strip) {}

void StripBody::adopt(QWidget* child, const char* objectName, const Place& place)
{
    adoptNamed(child, objectName, place, {});
}

void StripBody::adopt(const PanelPort& port, const char* objectName, const Place& place)
{
    adopt(port.widget, objectName, place);
    mFonts.push_back(port.setFont);
    mLanguages.push_back(port.setLanguage);
    mNames.push_back(port.setAccessibleName);
}

void StripBody::adopt(const ValuePort& port, const char* objectName, const Place& place, const StripText& meaning)
{
    adoptNamed(port.widget, objectName, place, meaning);
    mFonts.push_back(port.setFont);
}

void StripBody::adopt(const MeterPort& port, const char* objectName, const Place& place, const StripText& meaning)
{
    adoptNamed(port.widget, objectName, place, meaning);
    mFonts.push_back(port.setFont);
}

void StripBody::adoptNamed(QWidget* child, const char* objectName, const Place& place, const StripText& meaning)
{
    child->setObjectName(QLatin1StringView(objectName));
    mChildren.push_back({child, place, meaning});
}

void StripBody::setPlace(const QWidget* child, const Place& place)
{
    for (Child& each : mChildren) {
        if (each.widget == child) {
            each.place = place;
        }
    }
}

void StripBody::setChannelName(const QString& name)
{
    mHead.setChannelName(name);
    rename();
}

void StripBody::setFont(const QFont& font)
{
    mHead.setFont(font);
    for (const auto& apply : mFonts) {
        apply(font);
    }
}

void StripBody::onAppSettingsChanged(const QString& attribute, const QString& value)
{
    if (attribute != "Language"_L1 || (value != "English"_L1 && value != "Chinese"_L1)) {
        return;
    }
    mLanguage = value;
    mHead.setChinese(isChinese());
    for (const auto& apply : mLanguages) {
        apply(value);
    }
    rename();
}

void StripBody::rename()
{
    const QString name = mHead.shownName();
    const QString naming = name + u'\n' + mLanguage;
    if (naming == mNaming) {
        return; // a dozen widgets would tell assistive technology of no change, a third of the time of a load
    }
    mNaming = naming;
    const auto text = [&](const StripText& meaning) { return name + u' ' + meaning.in(isChinese()); };
    mHead.setTexts(text(kName), text(kHide));
    for (const Child& child : mChildren) {
        if (child.meaning.english) {
            child.widget->setAccessibleName(text(child.meaning));
        }
    }
    for (const auto& apply : mNames) {
        apply(name);
    }
}

void StripBody::layout()
{
    mHead.layout();
    for (const Child& child : mChildren) {
        child.widget->setGeometry(placeRect(child.place, mStrip->size(), child.widget->minimumSize()));
    }
}

} // namespace quillon
