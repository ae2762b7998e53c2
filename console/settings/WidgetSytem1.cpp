#include "console/settings/WidgetSytem1.h"

#include "app/ScreenFit.h"
#include "console/settings/SettingsRows.h"
#include "workspace/WorkspaceSubject.h"

#include <QSettings>
#include <cmath>

using namespace Qt::StringLiterals;
using quillon::LiveChoice;
using quillon::RowChoice;
using quillon::RowKind;
using quillon::RowShape;

namespace
{

enum Row { Language, Scale, FollowSystem, AutoSave, AutoStart, AutoCheck };

// Each language calls itself by its own name, so that who reads only one finds it.
constexpr RowChoice kLanguages[]{
    {u"English", {u"English", u"English"}},
    {u"Chinese", {u"简体中文", u"简体中文"}},
};
constexpr RowChoice kScales[]{
    {u"0.5", {u"50%", u"50%"}},   {u"0.75", {u"75%", u"75%"}},   {u"1", {u"100%", u"100%"}}, {u"1.25", {u"125%", u"125%"}},
    {u"1.5", {u"150%", u"150%"}}, {u"1.75", {u"175%", u"175%"}}, {u"2", {u"200%", u"200%"}},
};
constexpr double kSameFactor = 0.001;

constexpr RowShape kRows[]{
    {u"Language", {u"Language", u"语言选择"}, RowKind::Combo, kLanguages},
    {u"ScaleFactor", {u"UI Scale", u"界面比例"}, RowKind::Combo, kScales},
    {u"FollowSystemScale", {u"Follow system UI scaling", u"界面比例跟随系统"}, RowKind::Switch},
    {u"AutoSaveWorkspace", {u"Auto save workspace", u"自动保存工作区"}, RowKind::Switch},
    {u"AutoStartOnBoot", {u"Launch at startup", u"开机自启动"}, RowKind::Switch},
    {u"AutoCheckForUpdates", {u"Auto check for updates", u"自动检查更新"}, RowKind::Switch},
};

/// By row; what a switch tells. The name of its row is its key in the store.
constexpr const char16_t* kEvents[]{
    nullptr, u"InterfaceScale", u"FollowSystem", u"AutoSaveWorkspace", u"AutoStart", u"AutoCheckUpdate",
};

QString percent(double factor)
{
    return QString::number(std::round(factor * 1000) / 10) + u'%';
}

/// The steps, with the factor among them if it is none of them.
QList<LiveChoice> scaleChoices(double factor, const QString& data)
{
    QList<LiveChoice> choices;
    bool placed = false;
    for (const RowChoice& step : kScales) {
        const QString stepData = QString::fromUtf16(step.data);
        const double stepFactor = stepData.toDouble();
        const bool same = std::abs(stepFactor - factor) < kSameFactor;
        if (!placed && !same && factor < stepFactor)
            choices.append({data, percent(factor), percent(factor)});
        placed = placed || same || factor < stepFactor;
        choices.append({same ? data : stepData, step.text.in(false), step.text.in(true)});
    }
    if (!placed)
        choices.append({data, percent(factor), percent(factor)});
    return choices;
}

} // namespace

WidgetSytem1::WidgetSytem1(QWidget* parent) : QWidget(parent), mRows(new quillon::SettingsRows(kRows, this))
{
    setObjectName(u"SettingsSystem"_s);
    connect(mRows, &quillon::SettingsRows::edited, this, &WidgetSytem1::rowEdited);
}

void WidgetSytem1::setLanguage(const QString& language)
{
    mRows->set(Language, language);
}

void WidgetSytem1::setScaleFactor(const QString& factor)
{
    const double number = factor.toDouble();
    if (number > 0 && std::isfinite(number))
        mRows->setChoices(Scale, scaleChoices(number, factor), factor);
}

void WidgetSytem1::setFollowSystemScale(bool on)
{
    mRows->set(FollowSystem, QString::number(int(on)));
}

void WidgetSytem1::setAutoSaveWorkspace(bool on)
{
    mRows->set(AutoSave, QString::number(int(on)));
}

void WidgetSytem1::setAutoStartOnBoot(bool on)
{
    mRows->set(AutoStart, QString::number(int(on)));
}

void WidgetSytem1::setAutoCheckForUpdates(bool on)
{
    mRows->set(AutoCheck, QString::number(int(on)));
}

void WidgetSytem1::onAppSettingsChanged(QString, QString attribute, QString value)
{
    mRows->applySetting(attribute, value);
    if (attribute == "Language"_L1)
        setLanguage(value);
    else if (attribute == "ScaleFactor"_L1)
        setScaleFactor(value);
}

void WidgetSytem1::rowEdited(int row, const QString& value)
{
    AppSettingsSubject& settings = AppSettingsSubject::instance();
    if (row == Language) {
        settings.changeLanguage(value);
        return;
    }
    if (row == Scale) {
        quillon::keepScaleFactor();
        settings.changeScaleFactor(value);
    } else {
        storeSwitch(row, value == "1"_L1);
    }
    if (row == AutoSave && !applyAutoSave(value == "1"_L1))
        return;
    if (row == AutoStart && mAutoStarter)
        mAutoStarter(value == "1"_L1);
    emit attributeChanged(objectName(), QString::fromUtf16(kEvents[row]), value);
}

void WidgetSytem1::storeSwitch(int row, bool on)
{
    QSettings().setValue(QString::fromUtf16(kRows[row].name), on);
}

/// A workspace that could not go over keeps its way to be saved, and so has the setting: with its save button gone, the edits of a
/// private copy would be lost. False then.
bool WidgetSytem1::applyAutoSave(bool on)
{
    WorkspaceSubject& workspace = WorkspaceSubject::instance();
    if (mWorkspaceFixed || !workspace.isOpen())
        return true; // the next one opens as the setting tells
    workspace.modifyWorkspacePreprocessing(on ? 0 : 1);
    if (workspace.mode() == (on ? 0 : 1))
        return true;
    storeSwitch(AutoSave, !on);
    setAutoSaveWorkspace(!on);
    return false;
}
