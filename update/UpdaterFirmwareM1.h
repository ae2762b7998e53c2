#pragma once

#include "update/UpdaterBase.h"

/// Writes a firmware file, or the one inside an archive, into the device through the driver.
class UpdaterFirmwareM1 : public UpdaterBase
{
    Q_OBJECT
public:
    static UpdaterFirmwareM1& instance();

    /// A ".bin" file, or a ".zip" file that holds a ".bin" of its own base name.
    void update(const QString& path) override;

private:
    QString imageOf(const QString& path) const;
    bool run(const QString& path);
    bool follow();

    QElapsedTimer mSpeedTimer;
    unsigned mLastBytes = 0;
};
