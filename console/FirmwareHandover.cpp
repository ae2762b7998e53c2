#include "console/FirmwareHandover.h"

#include "device/USBAudioAPI.h"

namespace quillon
{

namespace
{

constexpr int kGoneMs = 10;
constexpr int kMostLooks = 100; // a unit that never goes was in its update mode before
constexpr int kBackMs = 100;    // each look opens the devices that the driver lists

} // namespace

FirmwareHandover::FirmwareHandover(QObject* parent) : QObject(parent)
{
    connect(&mTimer, &QTimer::timeout, this, &FirmwareHandover::look);
}

void FirmwareHandover::start(const QString& deviceName)
{
    if (isWaiting()) {
        return;
    }
    mDeviceName = deviceName;
    mLooks = 0;
    mGone = false;
    mTimer.start(kGoneMs);
}

void FirmwareHandover::look()
{
    USBAudioAPI& driver = USBAudioAPI::instance();
    if (!mGone) {
        mGone = !driver.isActiveDeviceOnline() || ++mLooks >= kMostLooks;
        if (mGone) {
            mTimer.start(kBackMs);
        }
        return;
    }
    if (driver.getNameOfAllDevice().contains(mDeviceName) && driver.setDeviceToActiveByName(mDeviceName)) {
        mTimer.stop();
        emit ready();
    }
}

} // namespace quillon
