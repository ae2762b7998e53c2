#pragma once

#include "connect/RetiredWindow.h"
#include "connect/UpdateProgress.h"
#include "controls/FramelessWindow.h"

#include <QHash>
#include <QPair>
#include <QSize>
#include <QStringList>
#include <QTimer>
#include <functional>

class DeviceConnectorViewBase;
class MainWindow_Base;

namespace quillon
{
class UpdateGateway;
}

/// The window that is open whenever no console is: it finds the device, makes its console, offers and shows updates, and comes
/// back when the device goes. GUI thread.
class DeviceConnector : public FramelessWindow
{
    Q_OBJECT
public:
    using ViewFactory = std::function<DeviceConnectorViewBase*(DeviceConnector*)>;
    using MainWindowFactory = std::function<MainWindow_Base*(DeviceConnector*)>;

    /// Waits of the flow in milliseconds.
    struct Timing {
        int poll = 500;     // between two looks at the driver's device list
        int failed = 2000;  // "Connection failed" stays this long
        int updated = 1000; // a finished progress bar stays this long
    };

    /// updates is not owned and outlives the window; null: nothing is ever fetched, and an update that is asked for fails.
    explicit DeviceConnector(quillon::UpdateGateway* updates = nullptr, QWidget* parent = nullptr);
    ~DeviceConnector() override;

    /// A later registration of a name replaces the one before it.
    void registerView(const QString& series, const ViewFactory& factory);
    void registerMainWindow(const QString& device, const MainWindowFactory& factory);
    void setTiming(const Timing& timing);

    /// Opens the window for a series: device name to vendor and product, "0x"-prefixed. Once. Unknown series: a warning, no window.
    void showSeries(const QString& series, const QHash<QString, QPair<QString, QString>>& devices);

    MainWindow_Base* console() const { return mMainWindow; }
    quillon::UpdateGateway* updates() const { return mUpdates; }

    void done(int result) override;

public slots:
    void in_mTimer_timeout();
    void in_widgetConnectView_attributeChanged(QString objectName, QString attribute, QString value);
    void in_mainWindow_attributeChanged(QString objectName, QString attribute, QString value);
    void in_updaterFirmware_attributeChanged(QString attribute, QString value);
    void in_updaterSoftware_attributeChanged(QString attribute, QString value);

private:
    void registerSeries();
    void openView(const ViewFactory& factory);
    void checkForUpdates(int restPage);
    void offerOrRest(int restPage);
    void startPolling();
    void showAtScale();
    void selectDevice(const QString& name);
    void retireConsole();
    void handleUpdateEvent(const QString& value);
    void handleAuthResult(const QString& value);
    void retryFetch();
    void forgetFirmware();
    void downloadSoftware();
    void downloadFirmware();
    void startFirmwareUpdate(const QString& device, const QString& path);
    void showProgressPage();
    void requestQuit();

    quillon::UpdateGateway* mUpdates;
    QHash<QString, ViewFactory> mConnectViewCreators;
    QHash<QString, MainWindowFactory> mMainWindowCreators;
    DeviceConnectorViewBase* mView = nullptr;
    MainWindow_Base* mMainWindow = nullptr;
    QTimer mTimer;
    QStringList mDeviceNames;
    QString mUpdateDevice;
    QSize mBaseSize;

    quillon::RetiredWindow mRetired;
    Timing mTiming;
    quillon::UpdateProgress mProgress;
    bool mConsoleUp = false;     // a console took over and this window stepped back
    bool mFetching = false;      // inside the waiting fetch
    bool mQuitRequested = false; // asked for while the event loop could not end yet
};
