#include "app/SingleInstanceManager.h"

#include "app/AppSettingsSubject.h"
#include "app/Application.h"
#include "app/TrayMenu.h"
#include "app/TrayPlace.h"

#include <QApplication>
#include <QIcon>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSharedMemory>
#include <QSystemTrayIcon>

#include <algorithm>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr char kActivate[] = "ACTIVATE";
constexpr qint64 kActivateSize = sizeof kActivate - 1;
constexpr int kConnectMs = 1000;
constexpr int kWriteMs = 30000;
constexpr int kStaleMemories = 16; // each of them found once
constexpr int kMaxCallers = 32;    // at once; more than that are no starts of a user

// By name: the windows stand floors above this one.
QWidget* topLevel(const char* className)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found =
        std::find_if(windows.cbegin(), windows.cend(), [className](QWidget* window) { return window->inherits(className); });
    return found == windows.cend() ? nullptr : *found;
}

} // namespace

SingleInstanceManager& SingleInstanceManager::instance()
{
    static SingleInstanceManager manager;
    return manager;
}

SingleInstanceManager::SingleInstanceManager()
    : mSharedMemory(new QSharedMemory(this)), mName(QCoreApplication::applicationName()), mScope(mName)
{
    connect(&AppSettingsSubject::instance(), &AppSettingsSubject::attributeChanged, this,
            [this](const QString&, const QString& attribute, const QString& value) {
                if (attribute == u"ModifyLanguage"_s) {
                    mLanguage = value; // a tray may come later
                    if (mTrayMenu != nullptr) {
                        mTrayMenu->setLanguage(value);
                    }
                }
            });
    // This object outlives the application; a menu, an icon and a server do not.
    qAddPostRoutine([] { instance().leave(); });
}

SingleInstanceManager::~SingleInstanceManager() = default;

void SingleInstanceManager::leave()
{
    delete std::exchange(mTrayIcon, nullptr);
    delete std::exchange(mTrayMenu, nullptr);
    delete std::exchange(mTrayPlace, nullptr);
    if (std::exchange(mIsOwner, false)) {
        // In its turn: the last one out takes the memory's name away, which a start could be about to use.
        const auto turn = mScope.takeTurn();
        delete std::exchange(mLocalServer, nullptr);
        mSharedMemory->detach();
    }
}

void SingleInstanceManager::checkAndActivate()
{
    auto turn = mScope.takeTurn();
    if (otherInstanceLives()) {
        mSharedMemory->detach();
        turn.reset();
        activateOther();
    }
    mIsOwner = true;
    startServer();
}

bool SingleInstanceManager::otherInstanceLives()
{
    const auto isInUse = [this] {
        const bool attached = mSharedMemory->attach(QSharedMemory::ReadWrite);
        if (attached) {
            mSharedMemory->detach();
        }
        return attached;
    };
    for (int i = 0; i < kStaleMemories; ++i) {
        mScope.nameMemory(*mSharedMemory);
        // What a killed process has left goes with the next one who leaves it.
        isInUse();
        if (isInUse()) {
            return true;
        }
        if (mSharedMemory->create(1, QSharedMemory::ReadWrite)) {
            break;
        }
    }
    // The memory's file may have been tidied away from under the one who lives.
    return serverAnswers();
}

bool SingleInstanceManager::serverAnswers() const
{
    QLocalSocket probe;
    probe.connectToServer(mScope.serverName(), QIODevice::ReadWrite);
    return probe.waitForConnected(kConnectMs);
}

void SingleInstanceManager::startServer()
{
    QLocalServer::removeServer(mScope.serverName()); // a killed process leaves it
    mLocalServer = new QLocalServer(this);
    mLocalServer->setSocketOptions(QLocalServer::UserAccessOption);
    connect(mLocalServer, &QLocalServer::newConnection, this, &SingleInstanceManager::acceptConnection);
    if (!mLocalServer->listen(mScope.serverName())) {
        qWarning().noquote() << "无法启动本地服务器:" << mLocalServer->errorString();
    }
}

void SingleInstanceManager::activateOther()
{
    QLocalSocket socket;
    socket.connectToServer(mScope.serverName(), QIODevice::ReadWrite);
    if (socket.waitForConnected(kConnectMs)) {
        socket.write(kActivate, kActivateSize);
        socket.waitForBytesWritten(kWriteMs);
    }
    std::exit(0);
}

void SingleInstanceManager::acceptConnection()
{
    QLocalSocket* caller = mLocalServer->nextPendingConnection();
    if (caller == nullptr) {
        return;
    }
    connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
    if (mLocalServer->findChildren<QLocalSocket*>(Qt::FindDirectChildrenOnly).size() > kMaxCallers) {
        caller->abort();
        return;
    }
    caller->setReadBufferSize(kActivateSize + 1);
    connect(caller, &QLocalSocket::readyRead, this, [this, caller] {
        if (caller->readAll() == QByteArrayView(kActivate)) {
            activateWindow();
        } else {
            caller->abort();
        }
    });
}

void SingleInstanceManager::activateWindow()
{
    QWidget* window = topLevel("MainWindow_Base");
    if (window == nullptr) {
        window = topLevel("DeviceConnector");
    }
    if (window != nullptr) {
        window->showNormal();
        window->raise();
        window->activateWindow();
    }
}

void SingleInstanceManager::openTray()
{
    if (!mIsOwner || mTrayPlace != nullptr) {
        return;
    }
    mTrayPlace = new quillon::TrayPlace(this);
    connect(mTrayPlace, &quillon::TrayPlace::changed, this, &SingleInstanceManager::placeIcon);
}

void SingleInstanceManager::placeIcon()
{
    if (mTrayIcon != nullptr || !mTrayPlace->isThere() || !QSystemTrayIcon::isSystemTrayAvailable()) {
        return;
    }
    mTrayMenu = new quillon::TrayMenu;
    mTrayMenu->setLanguage(mLanguage);
    connect(mTrayMenu, &quillon::TrayMenu::showRequested, this, &SingleInstanceManager::activateWindow);
    connect(mTrayMenu, &quillon::TrayMenu::quitRequested, &quillon::Application::leave);
    mTrayIcon = new QSystemTrayIcon(QIcon(mIconPath), this);
    connect(mTrayIcon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger) {
            activateWindow();
        }
    });
    mTrayIcon->setContextMenu(mTrayMenu);
    mTrayIcon->setVisible(true);
}

void SingleInstanceManager::setTrayIcon(QString path)
{
    mIconPath = std::move(path);
    if (mTrayIcon != nullptr) {
        mTrayIcon->setIcon(QIcon(mIconPath));
    }
}

void SingleInstanceManager::stepBack(QWidget& window)
{
    if (quillon::Application::isLeaving()) {
        window.hide();
        return;
    }
    if (mTrayPlace != nullptr) {
        placeIcon(); // not every kind of tray tells when it comes
    }
    const bool inTray = mTrayIcon != nullptr && mTrayPlace != nullptr && mTrayPlace->isThere();
    if (mIsOwner && !inTray) {
        window.showMinimized();
    } else {
        window.hide();
    }
}
