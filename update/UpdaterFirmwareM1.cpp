#include "update/UpdaterFirmwareM1.h"

#include "device/USBAudioAPI.h"
#include "update/PlatformSteps.h"
#include "update/SizeText.h"
#include "update/UpdateThread.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

constexpr unsigned long kLookMs = 10;

} // namespace

UpdaterFirmwareM1& UpdaterFirmwareM1::instance()
{
    static auto* const self = new UpdaterFirmwareM1;
    return *self;
}

void UpdaterFirmwareM1::update(const QString& path)
{
    UpdateThread::post([this, path] {
        const bool written = run(path);
        mLastBytes = 0;
        emit attributeChanged(u"UpdateState"_s, written ? u"Success"_s : u"Failed"_s);
    });
}

/// The image to write, empty when there is none.
QString UpdaterFirmwareM1::imageOf(const QString& path) const
{
    const QFileInfo file(path);
    if (!file.exists()) {
        return {};
    }
    QString image;
    if (path.endsWith(u".zip"_s)) {
        image = file.path() + QDir::separator() + file.completeBaseName() + u".bin"_s;
        if (!unpackImage(path, image)) {
            return {};
        }
    } else if (path.endsWith(u".bin"_s)) {
        image = path;
    }
    return QFileInfo::exists(image) ? image : QString();
}

bool UpdaterFirmwareM1::run(const QString& path)
{
    const QString image = imageOf(path);
    USBAudioAPI& driver = USBAudioAPI::instance();
    if (image.isEmpty() || !driver.setDFUStart(image)) {
        return false;
    }
    emit attributeChanged(u"UpdateState"_s, u"Start"_s);
    emit attributeChanged(u"UpdateFileSize"_s, sizeText(driver.getDFUBytesTotal()));
    const bool complete = follow();
    driver.setDFUTerminate();
    return complete;
}

/// Reports until the driver has done it all, or failed. Only the end of the program cuts it short.
bool UpdaterFirmwareM1::follow()
{
    USBAudioAPI& driver = USBAudioAPI::instance();
    mSpeedTimer.start();
    int last = 0;
    while (!UpdateThread::isStopping()) {
        QThread::msleep(kLookMs);
        const int percent = driver.getDFUPercentageComplete();
        if (percent != last) {
            last = percent;
            emit attributeChanged(u"UpdateProgress"_s, QString::number(percent));
            emit attributeChanged(u"UpdateCompleted"_s, sizeText(driver.getDFUBytesCurrent()));
        }
        if (percent == 0 || percent == 100) {
            return percent == 100;
        }
        if (const qint64 elapsed = mSpeedTimer.elapsed(); elapsed >= 1000) {
            const unsigned bytes = driver.getDFUBytesCurrent();
            const qint64 came = qint64{bytes} - mLastBytes;
            mLastBytes = bytes;
            mSpeedTimer.restart();
            emit attributeChanged(u"UpdateSpeed"_s, speedText(came, elapsed));
        }
    }
    return false;
}
