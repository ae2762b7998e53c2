#pragma once

#include "app/InstanceScope.h"

#include <QObject>
#include <QString>

class QLocalServer;
class QSharedMemory;
class QSystemTrayIcon;
class QWidget;

namespace quillon
{
class TrayMenu;
class TrayPlace;
} // namespace quillon

/// Lets one copy of the program run, brings its window forth when it is started again, and owns its icon in the tray. GUI thread.
class SingleInstanceManager : public QObject
{
    Q_OBJECT
public:
    /// Made after QApplication. What it holds is given back before that goes.
    static SingleInstanceManager& instance();

    /// Where another instance runs, tells it to come to the front and ends this process with exit(0). Otherwise this one is the
    /// first and can be reached from then on. Once, before anything is read or written.
    void checkAndActivate();
    /// Puts the icon into the tray, now or when a tray comes. Nothing in a program that is not the one instance.
    void openTray();
    /// Replaces the icon: path of an image, also of a resource.
    void setTrayIcon(QString path);
    /// Takes a window that the user closes off the screen, with the program going on: into the tray, or where there is none down to
    /// the task bar, from which alone it can be fetched again.
    void stepBack(QWidget& window);

private:
    SingleInstanceManager();
    ~SingleInstanceManager() override;

    bool otherInstanceLives();
    bool serverAnswers() const;
    void startServer();
    [[noreturn]] void activateOther();
    void acceptConnection();
    void activateWindow();
    void placeIcon();
    void leave();

    QSharedMemory* mSharedMemory;
    QString mName;
    QLocalServer* mLocalServer = nullptr;
    bool mIsOwner = false;
    QSystemTrayIcon* mTrayIcon = nullptr;
    quillon::TrayMenu* mTrayMenu = nullptr;

    quillon::InstanceScope mScope;
    quillon::TrayPlace* mTrayPlace = nullptr;
    QString mIconPath = QStringLiteral(":/Icon/AppIcon.ico");
    QString mLanguage;
};
