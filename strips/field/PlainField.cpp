#include "strips/field/PlainField.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

const QString kVisible = u"Visible"_s;

} // namespace

PlainField::PlainField(const StripText& title, const QString& objectName, QWidget* parent, Qt::Orientation orientation)
    : FieldBase(objectName, parent, orientation), WorkspaceObserver(objectName), mTitle(title)
{
    setFieldTitle(title.in(false));
    connect(this, &FieldBase::attributeChanged, this, &PlainField::in_widgetBase_attributeChanged);
}

PlainField& PlainField::setVisibleListDefault(const QStringList& names)
{
    mVisibleDefault = names;
    return *this;
}

void PlainField::loadSettings()
{
    const QStringList initial = mVisibleDefault.value_or(allNames());
    if (!hasValue(workspaceGroup())) {
        saveValue(workspaceGroup(), true);
        saveValue(kVisible, initial);
    }
    setFieldTitle(title());
    // The strips still hold the workspace before: showing and hiding them must not be heard.
    for (const auto& suspend : mSuspends) {
        suspend();
    }
    setVisibleList(hasValue(kVisible) ? loadValue(kVisible).toStringList() : initial);
}

void PlainField::onAppSettingsChanged(QString, QString attribute, QString value)
{
    if (attribute == "Language"_L1 && (value == "English"_L1 || value == "Chinese"_L1)) {
        mIsChinese = value == "Chinese"_L1;
        setFieldTitle(title());
        setAdditionLanguage(value);
    }
}

void PlainField::in_widgetBase_attributeChanged(QString, QString attribute, QString)
{
    if (attribute == kVisible) {
        saveValue(kVisible, visibleList());
    }
}

} // namespace quillon
