#pragma once

#include <QString>

class DeviceConnectorViewBase;

namespace quillon
{

/// What the progress page says while a file is downloaded or a device updated, from the events of an updater. GUI thread.
class UpdateProgress
{
public:
    enum class Outcome { Running, Done, Failed };

    /// Shows one event of a download ("Download...") or a firmware update ("Update..."). Others change nothing.
    Outcome show(DeviceConnectorViewBase& view, const QString& attribute, const QString& value);

private:
    void restart();

    QString mFileSize = QStringLiteral("0B");
    QString mSpeed = QStringLiteral("0B/s");
};

} // namespace quillon
