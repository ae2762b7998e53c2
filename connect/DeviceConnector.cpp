#include "connect/DeviceConnector.h"

#include "app/AppSettingsSubject.h"
#include "app/Application.h"
#include "app/FirstPicture.h"
#include "app/GlobalFont.h"
#include "app/SingleInstanceManager.h"
#include "connect/DeviceConnectorViewS1M1.h"
#include "connect/Registry.h"
#include "console/MainWindow_Base.h"
#include "device/USBAudioAPI.h"
#include "update/UpdateGateway.h"

#include <QCoreApplication>
#include <QIcon>
#include <QScopedValueRollback>
#include <QSettings>
#include <QShortcut>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

constexpr QSize kVantorSize{340, 260};

} // namespace

DeviceConnector::DeviceConnector(UpdateGateway* updates, QWidget* parent) : FramelessWindow(parent), mUpdates(updates)
{
    setTiming(Timing());
    connect(&mTimer, &QTimer::timeout, this, &DeviceConnector::in_mTimer_timeout);
    auto* quit = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this);
    connect(quit, &QShortcut::activated, this, &DeviceConnector::requestQuit);
    registerSeries();
    registerConsoles(*this);
}

DeviceConnector::~DeviceConnector()
{
    if (mMainWindow != nullptr) {
        disconnect(mMainWindow, nullptr, this, nullptr);
        delete mMainWindow;
    }
}

void DeviceConnector::registerSeries()
{
    registerView(u"Vantor"_s, [](DeviceConnector* connector) -> DeviceConnectorViewBase* {
        SingleInstanceManager::instance().setTrayIcon(u":/Icon/Vantor.ico"_s);
        connector->setWindowTitle(u"Quillon"_s);
        connector->setResizable(false);
        connector->mBaseSize = kVantorSize;
        return new DeviceConnectorViewS1M1(connector);
    });
}

void DeviceConnector::registerView(const QString& series, const ViewFactory& factory)
{
    mConnectViewCreators.insert(series, factory);
}

void DeviceConnector::registerMainWindow(const QString& device, const MainWindowFactory& factory)
{
    mMainWindowCreators.insert(device, factory);
}

void DeviceConnector::setTiming(const Timing& timing)
{
    mTiming = timing;
    mTimer.setInterval(timing.poll);
}

void DeviceConnector::showSeries(const QString& series, const QHash<QString, QPair<QString, QString>>& devices)
{
    const auto creator = mConnectViewCreators.constFind(series);
    if (creator == mConnectViewCreators.constEnd()) {
        qWarning().noquote() << "DeviceConnector::showSeries // series" << series << "is not registered in mConnectViewCreators";
        return;
    }
    mDeviceNames = devices.keys();
    USBAudioAPI::instance().setDevices(devices.values());
    openView(*creator);
    showAtScale();
    // All sizes of the icon are unpacked, which takes longer than the rest of the window; and the tray is looked for over a bus.
    afterFirstPicture(*this, [this] {
        setWindowIcon(QIcon(u":/Icon/Vantor.ico"_s));
        SingleInstanceManager::instance().openTray();
    });

    USBAudioAPI& driver = USBAudioAPI::instance();
    const int restPage = driver.apiVersion() != 0 && driver.checkApiVersion() ? PageNoDevice : PageDriverMissing;
    mView->setPage(restPage);
    if (mUpdates != nullptr) {
        connect(mUpdates, &UpdateGateway::softwareChanged, this, &DeviceConnector::in_updaterSoftware_attributeChanged);
        connect(mUpdates, &UpdateGateway::firmwareChanged, this, &DeviceConnector::in_updaterFirmware_attributeChanged);
        checkForUpdates(restPage);
    }
    if (mQuitRequested) {
        // The loop that could be ended was the fetch's own; this one reaches the program's as soon as that runs.
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    } else if (mView->currentPage() == PageNoDevice) {
        // The window is seen before a console is built. One that is not seen (on another desktop) is served by the timer. And the
        // rest of the start comes first: it holds the loop up for a while, in which the answer to a hello would wait.
        mTimer.start();
        afterFirstPicture(*this, [this] {
            QTimer::singleShot(0, this, [this] {
                if (mTimer.isActive()) {
                    in_mTimer_timeout();
                }
            });
        });
    }
}

void DeviceConnector::openView(const ViewFactory& factory)
{
    const QFont face = GlobalFont::instance().font();
    mView = factory(this);
    mView->setFont(face);
    mView->setLanguage(QSettings().value("Language").toString());
    setFont(face);
    setBody(mView);
    connect(mView, &DeviceConnectorViewBase::attributeChanged, this, &DeviceConnector::in_widgetConnectView_attributeChanged);
    connect(&AppSettingsSubject::instance(), &AppSettingsSubject::attributeChanged, mView,
            [this](const QString&, const QString& attribute, const QString& value) {
                if (attribute == u"ModifyLanguage"_s) {
                    mView->setLanguage(value);
                }
            });
}

void DeviceConnector::startPolling()
{
    mTimer.start();
    in_mTimer_timeout();
}

void DeviceConnector::showAtScale()
{
    const float factor = QSettings().value("ScaleFactor").toFloat();
    resize(static_cast<int>(mBaseSize.width() * factor), static_cast<int>(mBaseSize.height() * factor));
    showNormal(); // it may have stepped back into the task bar
}

void DeviceConnector::in_mTimer_timeout()
{
    USBAudioAPI& driver = USBAudioAPI::instance();
    const auto isOurs = [this](const QString& name) { return mDeviceNames.contains(name); };
    QStringList duplicates;
    if (driver.getDuplicateDeviceNames(duplicates) && std::any_of(duplicates.cbegin(), duplicates.cend(), isOurs)) {
        mView->setPage(PageSeveralDevices);
        return;
    }
    QStringList present;
    const QStringList names = driver.getNameOfAllDevice();
    std::copy_if(names.cbegin(), names.cend(), std::back_inserter(present), isOurs);
    if (present.size() == 1) {
        in_widgetConnectView_attributeChanged(QString(), u"SelectDevice"_s, present.first());
    } else if (present.isEmpty() && mView->currentPage() == PageSeveralDevices) {
        mView->setPage(PageNoDevice);
    }
}

void DeviceConnector::in_widgetConnectView_attributeChanged(QString objectName, QString attribute, QString value)
{
    Q_UNUSED(objectName)
    if (attribute == u"SelectDevice"_s) {
        selectDevice(value);
    } else if (attribute == u"Update"_s) {
        handleUpdateEvent(value);
    }
}

void DeviceConnector::selectDevice(const QString& name)
{
    if (mMainWindow != nullptr) {
        return;
    }
    if (!mRetired.settle()) {
        // The console before it still returns from a dialog; two of them would share one HID channel. The next look tries again.
        mTimer.start();
        return;
    }
    mTimer.stop();
    const auto creator = mMainWindowCreators.constFind(name);
    if (creator == mMainWindowCreators.constEnd()) {
        qWarning().noquote() << "DeviceConnector::in_widgetConnectView_attributeChanged // device" << name
                             << "is not registered in mMainWindowCreators";
        return;
    }
    mMainWindow = (*creator)(this);
    mView->setPage(PageConnecting);
    connect(mMainWindow, &MainWindow_Base::attributeChanged, this, &DeviceConnector::in_mainWindow_attributeChanged);
    mMainWindow->startConnection();
}

void DeviceConnector::in_mainWindow_attributeChanged(QString objectName, QString attribute, QString value)
{
    if (attribute == u"AuthResult"_s) {
        handleAuthResult(value);
    } else if (attribute == u"Disconnected"_s) {
        forgetFirmware();
        mView->setPage(PageNoDevice);
        showAtScale();
        mTimer.start();
        retireConsole();
    } else if (attribute == u"UpdateSoftware"_s) {
        showAtScale();
        retireConsole();
        downloadSoftware();
    } else if (attribute == u"UpdateFirmware"_s) {
        startFirmwareUpdate(objectName, value);
    }
}

void DeviceConnector::handleAuthResult(const QString& value)
{
    if (value == u"Success"_s) {
        mConsoleUp = true;
        hide();
        return;
    }
    if (value != u"Failed"_s) {
        return;
    }
    mView->setPage(PageConnectionFailed);
    if (mConsoleUp) {
        // The console that goes now was the only window.
        showAtScale();
    }
    QTimer::singleShot(mTiming.failed, this, [this] {
        if (mView->currentPage() == PageConnectionFailed) {
            mView->setPage(PageNoDevice);
            startPolling();
        }
    });
    retireConsole();
}

void DeviceConnector::retireConsole()
{
    mConsoleUp = false;
    if (MainWindow_Base* window = std::exchange(mMainWindow, nullptr)) {
        disconnect(window, nullptr, this, nullptr);
        window->endConnection();
        mRetired.retire(window);
    }
}

void DeviceConnector::done(int result)
{
    if (result == mResult) {
        SingleInstanceManager::instance().stepBack(*this);
    }
}

void DeviceConnector::requestQuit()
{
    mQuitRequested = mFetching;
    if (mFetching) {
        hide();
    }
    Application::leave();
}
