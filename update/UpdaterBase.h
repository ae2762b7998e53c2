#pragma once

#include "update/Download.h"
#include "update/UpdateSource.h"

#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QObject>
#include <QString>
#include <functional>
#include <mutex>

/// Fetches the manifest of the updates, and files of it one at a time. Lives on the updates' own thread and ends with it; its
/// operations may be called from any thread, its signals come from that one.
class UpdaterBase : public QObject
{
    Q_OBJECT
public:
    /// GUI thread. Nobody deletes it but deleteLater().
    UpdaterBase();
    ~UpdaterBase() override;

    /// Fetches the manifest and returns whether it came, spinning an event loop meanwhile. When the application quits meanwhile:
    /// false at once, and the application quits as soon as its own event loop runs.
    bool fetchInfoAndWait();
    /// Fetches the manifest and returns at once; fetchFinished() tells the end.
    void fetchInfo();
    /// Fetches a file and returns at once; attributeChanged() reports it, and update() gets it.
    void download(const QString& url);
    /// Begins what is done with a file, and returns.
    virtual void update(const QString& path) = 0;

    /// The manifest of the last fetch that succeeded, of whichever updater; empty before.
    static QJsonObject manifestObject();

    QString currentVersion() const;
    void setCurrentVersion(const QString& version);

    /// In place of the source of this build.
    void setSource(const quillon::UpdateSource& source);

signals:
    void attributeChanged(QString attribute, QString value);
    /// The end of fetchInfo().
    void fetchFinished(bool success);
    /// The end of any waiting fetch.
    void waitingFetchFinished();

private:
    void fetch(const std::function<void(bool)>& whenDone);

    QNetworkAccessManager* mNetwork;
    quillon::Download* mDownload;
    quillon::UpdateSource mSource;
    mutable std::mutex mVersionMutex;
    QString mCurrentVersion; // guarded by mVersionMutex
};
