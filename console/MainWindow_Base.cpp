#include "console/MainWindow_Base.h"

#include "app/AppSettingsSubject.h"
#include "device/USBAudioAPI.h"
#include "device/USBAudioManager.h"
#include "device/USBHIDAPI.h"

#include <QScopedValueRollback>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kFrameRateMs = 1000;
constexpr int kHelloMs = 500;
constexpr int kHellos = 10;
// A look at the driver's list opens and closes every listed device, so not more often than the connection window does it.
constexpr int kOnlineMs = 500;

} // namespace

MainWindow_Base::MainWindow_Base(QWidget* parent) : QMainWindow(parent)
{
    mTimerFrameRate.setInterval(kFrameRateMs);
    mTimerAuth.setInterval(kHelloMs);
    mTimerOnline.setInterval(kOnlineMs);
    connect(&mTimerFrameRate, &QTimer::timeout, this, &MainWindow_Base::in_mTimerFrameRate_timeout);
    connect(&mTimerAuth, &QTimer::timeout, this, &MainWindow_Base::in_mTimerAuth_timeout);
    connect(&mTimerOnline, &QTimer::timeout, this, &MainWindow_Base::in_mTimerOnline_timeout);
    connect(&USBAudioManager::instance(), &USBAudioManager::attributeChanged, this, &MainWindow_Base::in_USBAudio_attributeChanged);
}

MainWindow_Base::~MainWindow_Base()
{
    // The observers were parts of this window; none of them signs off by itself.
    AppSettingsSubject::instance().removeAllObservers();
    USBAudioManager::instance().stopMonitoring();
}

void MainWindow_Base::setDevice(DeviceBase* device, QString name)
{
    mDevice = device;
    mDeviceName = std::move(name);
    connect(mDevice, &DeviceBase::deviceDisconnected, this, &MainWindow_Base::in_mDevice_deviceDisconnected, Qt::UniqueConnection);
}

bool MainWindow_Base::openChannel() const
{
    return USBHIDAPI::instance().open(static_cast<unsigned short>(mDevice->vendorId()),
                                      static_cast<unsigned short>(mDevice->productId()));
}

void MainWindow_Base::startConnection()
{
    if (openChannel()) {
        mDevice->startDevice();
        sendAuth();
        mTimerAuth.start();
        return;
    }
    finishAuth(-1);
    if (!mEnded) {
        mTimerOnline.start();
    }
}

void MainWindow_Base::finishAuth(int result)
{
    if (mEnded) {
        return;
    }
    mTimerAuth.stop();
    mAuthRetries = 0;
    applyWorkMode(result);
    if (result == 0) {
        emit attributeChanged(QString(), u"AuthResult"_s, u"Failed"_s);
        return;
    }
    AppSettingsSubject& settings = AppSettingsSubject::instance();
    {
        const QScopedValueRollback handshake(mInHandshake, true);
        const QSettings stored;
        settings.changeLanguage(stored.value("Language").toString()).changeScaleFactor(stored.value("ScaleFactor").toString());
    }
    settings.setMainWindow(this);
    USBAudioAPI::instance().setDeviceToActiveByName(mDeviceName);
    if (result != -1) {
        USBAudioManager::instance().startMonitoring();
    }
    show();
    emit attributeChanged(QString(), u"AuthResult"_s, u"Success"_s);
}

void MainWindow_Base::endConnection()
{
    mEnded = true;
    mTimerAuth.stop();
    mTimerOnline.stop();
    mTimerFrameRate.stop();
    USBAudioManager::instance().stopMonitoring(); // a unit that is away has no rates to tell
}

void MainWindow_Base::in_mTimerFrameRate_timeout()
{
    qInfo("FPS: %d", mMeterFrames);
    mMeterFrames = 0;
}

void MainWindow_Base::in_mTimerAuth_timeout()
{
    if (++mAuthRetries == kHellos) {
        finishAuth(0);
    } else {
        sendAuth();
    }
}

void MainWindow_Base::in_mTimerOnline_timeout()
{
    // A device that comes back within one interval was never missed by the driver: its channel tells.
    if (!USBAudioAPI::instance().isActiveDeviceOnline() || openChannel()) {
        in_mDevice_deviceDisconnected();
    }
}

void MainWindow_Base::in_mDevice_deviceDisconnected()
{
    if (!mEnded) {
        emit attributeChanged(QString(), u"Disconnected"_s, u"1"_s);
    }
}

void MainWindow_Base::countMeterFrame()
{
    if (mTimerFrameRate.isActive()) {
        ++mMeterFrames;
    }
}
