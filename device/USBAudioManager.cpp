#include "device/USBAudioManager.h"

#include "device/USBAudioAPI.h"

using namespace Qt::StringLiterals;

USBAudioManager& USBAudioManager::instance()
{
    static USBAudioManager instance;
    return instance;
}

USBAudioManager::USBAudioManager()
{
    mTimer.setInterval(500);
    connect(&mTimer, &QTimer::timeout, this, &USBAudioManager::in_mTimer_timeout);
}

void USBAudioManager::startMonitoring()
{
    in_mTimer_timeout();
    mTimer.start();
}

void USBAudioManager::stopMonitoring()
{
    mTimer.stop();
    mSampleRate = -1;
    mSafeMode = -1;
}

void USBAudioManager::in_mTimer_timeout()
{
    USBAudioAPI& driver = USBAudioAPI::instance();
    report(mSampleRate, driver.getSampleRateOfActiveDevice(), u"SampleRate"_s);
    report(mBufferSize, driver.getBufferSizeOfActiveDevice(), u"BufferSize"_s);
    report(mSafeMode, driver.getSafeModeOfActiveDevice() ? 1 : 0, u"SafeMode"_s);
}

void USBAudioManager::report(int& known, int current, const QString& attribute)
{
    if (current == known) {
        return;
    }
    known = current;
    emit attributeChanged(attribute, QString::number(static_cast<unsigned>(current)));
}
