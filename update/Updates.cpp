#include "update/Updates.h"

#include "update/UpdaterFirmwareM1.h"
#include "update/UpdaterSoftware.h"

namespace quillon
{

Updates::Updates(const UpdateSource& source, QObject* parent) : UpdateGateway(parent), mSource(source) {}

bool Updates::hasHost() const
{
    return !mSource.manifest.isEmpty();
}

bool Updates::fetchAndWait()
{
    return hasHost() && software().fetchInfoAndWait();
}

void Updates::fetch()
{
    if (hasHost()) {
        software().fetchInfo();
    } else {
        QMetaObject::invokeMethod(
            this, [this] { emit fetchFinished(false); }, Qt::QueuedConnection);
    }
}

QString Updates::manifestText(const QStringList& path) const
{
    QJsonValue value = UpdaterBase::manifestObject();
    for (const QString& key : path) {
        value = value.toObject().value(key);
    }
    return value.toString();
}

void Updates::downloadSoftware(const QString& url)
{
    software().download(url);
}

void Updates::downloadFirmware(const QString& url)
{
    firmware().download(url);
}

void Updates::updateFirmware(const QString& path)
{
    firmware().update(path);
}

void Updates::setFirmwareVersion(const QString& version)
{
    firmware().setCurrentVersion(version);
}

UpdaterSoftware& Updates::software()
{
    if (mSoftware == nullptr) {
        mSoftware = &UpdaterSoftware::instance();
        mSoftware->setSource(mSource);
        connect(mSoftware, &UpdaterBase::attributeChanged, this, &UpdateGateway::softwareChanged);
        connect(mSoftware, &UpdaterBase::fetchFinished, this, &UpdateGateway::fetchFinished);
    }
    return *mSoftware;
}

UpdaterFirmwareM1& Updates::firmware()
{
    if (mFirmware == nullptr) {
        mFirmware = &UpdaterFirmwareM1::instance();
        mFirmware->setSource(mSource);
        connect(mFirmware, &UpdaterBase::attributeChanged, this, &UpdateGateway::firmwareChanged);
    }
    return *mFirmware;
}

} // namespace quillon
