#pragma once

#include "update/UpdateGateway.h"
#include "update/UpdateSource.h"

class UpdaterBase;
class UpdaterFirmwareM1;
class UpdaterSoftware;

namespace quillon
{

/// The updates as the windows see them, over the two updaters. These, and their thread, are made when they are first needed.
class Updates : public UpdateGateway
{
    Q_OBJECT
public:
    explicit Updates(const UpdateSource& source = UpdateSource::ofBuild(), QObject* parent = nullptr);

    bool hasHost() const override;
    bool fetchAndWait() override;
    void fetch() override;
    QString manifestText(const QStringList& path) const override;
    void downloadSoftware(const QString& url) override;
    void downloadFirmware(const QString& url) override;
    void updateFirmware(const QString& path) override;
    void setFirmwareVersion(const QString& version) override;

private:
    UpdaterSoftware& software();
    UpdaterFirmwareM1& firmware();

    UpdateSource mSource;
    UpdaterSoftware* mSoftware = nullptr;
    UpdaterFirmwareM1* mFirmware = nullptr;
};

} // namespace quillon
