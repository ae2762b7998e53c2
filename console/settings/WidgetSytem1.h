#pragma once

#include "app/AppSettingsSubject.h"

#include <functional>

namespace quillon
{
class SettingsRows;
}

/// The "System" page of the settings: what concerns the program. What is chosen is stored at once, then told. The setters show and
/// stay silent. GUI thread.
class WidgetSytem1 final : public QWidget, public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit WidgetSytem1(QWidget* parent = nullptr);

    /// "English" or "Chinese"; others are ignored.
    void setLanguage(const QString& language);
    /// The factor as it is stored. One between the steps stands among them until another is chosen; none above 0 is ignored.
    void setScaleFactor(const QString& factor);
    void setFollowSystemScale(bool on);
    void setAutoSaveWorkspace(bool on);
    void setAutoStartOnBoot(bool on);
    void setAutoCheckForUpdates(bool on);
    /// Whether the page has one workspace, which is always written at once: it offers no way to save by hand.
    void setWorkspaceFixed(bool fixed) { mWorkspaceFixed = fixed; }
    /// Who makes and removes the entry that starts the program at log-in. Empty: only the setting is written.
    void setAutoStarter(std::function<void(bool)> starter) { mAutoStarter = std::move(starter); }

    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

signals:
    /// ("SettingsSystem", "InterfaceScale", factor) and with "0" or "1" "FollowSystem", "AutoSaveWorkspace", "AutoStart",
    /// "AutoCheckUpdate".
    void attributeChanged(QString objectName, QString attribute, QString value);

private:
    void rowEdited(int row, const QString& value);
    void storeSwitch(int row, bool on);
    bool applyAutoSave(bool on);

    quillon::SettingsRows* mRows;
    bool mWorkspaceFixed = false;
    std::function<void(bool)> mAutoStarter;
};
