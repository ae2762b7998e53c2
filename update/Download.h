#pragma once

#include "update/UpdateSource.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTemporaryDir>
#include <memory>

class QNetworkAccessManager;
class QNetworkReply;

namespace quillon
{

/// Fetches one file at a time into memory and from there into a fresh folder that only this user can enter. Lives on the thread of
/// its network.
class Download : public QObject
{
    Q_OBJECT
public:
    /// The network is not owned.
    explicit Download(QNetworkAccessManager& network, QObject* parent = nullptr);
    ~Download() override;

    /// Returns at once; reported() and finished() tell the rest.
    void start(const QString& address, const UpdateSource& source);

signals:
    /// "DownloadState", "DownloadFileSize", "DownloadProgress", "DownloadCompleted", "DownloadSpeed".
    void reported(QString attribute, QString value);
    /// The file is there.
    void succeeded(QString path);

private:
    void request(const QUrl& url, const UpdateSource& source);
    void announce(const QNetworkReply& reply);
    void progress(const QNetworkReply& reply, qint64 received, qint64 total);
    void take(QNetworkReply& reply);
    QString finish(const QNetworkReply& reply, const QString& name);
    QString store(const QString& name);
    void end(const QString& path);

    QNetworkAccessManager& mNetwork;
    // Keeps what a failed attempt has left: a retry is meant for one that had brought nothing at all.
    QByteArray mBuffer;
    QElapsedTimer mSpeedTimer;
    qint64 mLastBufferSize = 0;
    std::unique_ptr<QTemporaryDir> mFolder; // of the last file, which stays after use
};

} // namespace quillon
