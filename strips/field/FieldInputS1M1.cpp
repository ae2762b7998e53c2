#include "strips/field/FieldInputS1M1.h"

#include "strips/input/InputBase.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const QString kSoloState = u"SoloState"_s;
const QString kVisible = u"Visible"_s;

QString titleIn(const QString& language)
{
    if (language == "English"_L1) {
        return u"Input"_s;
    }
    return language == "Chinese"_L1 ? u"输入"_s : QString();
}

} // namespace

FieldInputS1M1::FieldInputS1M1(const QString& objectName, QWidget* parent)
    : FieldInputBase1(objectName, parent), WorkspaceObserver(objectName)
{
    setFieldTitle(titleIn(u"English"_s));
    connect(this, &FieldInputBase1::attributeChanged, this, &FieldInputS1M1::in_widgetBase_attributeChanged);
}

FieldInputS1M1& FieldInputS1M1::setWidgetList(const QList<InputBase*>& strips)
{
    mStripList = strips;
    for (InputBase* strip : strips) {
        strip->setSoloCount(&mSoloCount);
        // Before the base passes an event on: whoever hears of a solo finds the count changed.
        connect(strip, &InputBase::attributeChanged, this, &FieldInputS1M1::in_widgetList_attributeChanged);
    }
    setStrips(strips);
    return *this;
}

FieldInputS1M1& FieldInputS1M1::setVisibleListDefault(const QStringList& names)
{
    mVisibleDefault = names;
    mVisibleDefaultSet = true;
    return *this;
}

void FieldInputS1M1::loadSettings()
{
    const QStringList initial = mVisibleDefaultSet ? mVisibleDefault : allNames();
    if (!hasValue(workspaceGroup())) {
        saveValue(workspaceGroup(), true);
        saveValue(kSoloState, 0);
        saveValue(kVisible, initial);
    }
    // The strips still hold the workspace before: showing and hiding them must neither be heard nor be counted.
    for (InputBase* strip : std::as_const(mStripList)) {
        strip->suspend();
    }
    mSoloCount = std::clamp(loadValue(kSoloState).toInt(), 0, static_cast<int>(mStripList.size()));
    setVisibleList(hasValue(kVisible) ? loadValue(kVisible).toStringList() : initial);
    emit attributeChanged(u"Input_All"_s, u"Save_"_s + kSoloState, QString::number(mSoloCount));
}

void FieldInputS1M1::onAppSettingsChanged(QString, QString attribute, QString value)
{
    const QString title = attribute == "Language"_L1 ? titleIn(value) : QString();
    if (!title.isEmpty()) {
        setFieldTitle(title);
        setAdditionLanguage(value);
    }
}

void FieldInputS1M1::in_widgetBase_attributeChanged(QString, QString attribute, QString)
{
    if (attribute == kVisible) {
        saveValue(kVisible, visibleList());
    }
}

void FieldInputS1M1::in_widgetList_attributeChanged(QString objectName, QString attribute, QString value)
{
    if (attribute == "Solo"_L1) {
        changeSoloCount(objectName, value != "0"_L1);
    }
}

void FieldInputS1M1::changeSoloCount(const QString& strip, bool soloed)
{
    const bool wasSoloing = mSoloCount != 0;
    if (soloed) {
        mSoloCount = std::min(mSoloCount + 1, static_cast<int>(mStripList.size()));
    } else {
        // A count that came out of a file may be too high: where no solo is left, the field has to be set free.
        mSoloCount = anySoloBut(strip) ? std::max(mSoloCount - 1, 0) : 0;
    }
    if (wasSoloing != (mSoloCount != 0)) {
        for (InputBase* each : std::as_const(mStripList)) {
            each->soloCountChanged();
        }
    }
    saveValue(kSoloState, mSoloCount);
    emit attributeChanged(u"Input_All"_s, u"Save_"_s + kSoloState, QString::number(mSoloCount));
}

bool FieldInputS1M1::anySoloBut(const QString& strip) const
{
    return std::ranges::any_of(mStripList, [&](const InputBase* each) {
        return each->objectName() != strip && each->isStripEnabled() && each->getSolo();
    });
}
