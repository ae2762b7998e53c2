#pragma once

#include <QMenu>

namespace quillon
{

/// The context menu of the tray icon, in Chinese until it is told another language.
class TrayMenu : public QMenu
{
    Q_OBJECT
public:
    TrayMenu();

    /// "English" or "Chinese"; another one changes nothing.
    void setLanguage(const QString& language);

signals:
    void showRequested();
    void quitRequested();
};

} // namespace quillon
