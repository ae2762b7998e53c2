#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace quillon
{

/// All that the connection window asks of the updates: the manifest, two downloads and one local file. GUI thread; the work
/// behind it may run elsewhere.
class UpdateGateway : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Whether there is a host to ask. Without one nothing is fetched by itself; a file of the user's can be written all the same.
    virtual bool hasHost() const { return true; }
    /// Fetches the manifest and returns when it is there or has failed (false). Spins an event loop of its own meanwhile.
    virtual bool fetchAndWait() = 0;
    /// Starts to fetch the manifest and returns; fetchFinished() tells the end.
    virtual void fetch() = 0;
    /// A text of the last fetched manifest by its path from the root, empty where there is none.
    virtual QString manifestText(const QStringList& path) const = 0;

    /// Start a download and return; softwareChanged() and firmwareChanged() report it. An empty address fails through them.
    virtual void downloadSoftware(const QString& url) = 0;
    virtual void downloadFirmware(const QString& url) = 0;
    /// Starts the firmware update from a file and returns.
    virtual void updateFirmware(const QString& path) = 0;
    /// The firmware that the connected device reported; empty: none known.
    virtual void setFirmwareVersion(const QString& version) = 0;

signals:
    void fetchFinished(bool success);
    /// "DownloadState", "DownloadProgress", "DownloadFileSize", "DownloadSpeed", "DownloadCompleted".
    void softwareChanged(QString attribute, QString value);
    /// The same, and "UpdateState", "UpdateProgress", "UpdateFileSize", "UpdateSpeed", "UpdateCompleted".
    void firmwareChanged(QString attribute, QString value);
};

} // namespace quillon
