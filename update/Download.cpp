#include "update/Download.h"

#include "update/HostName.h"
#include "update/Reply.h"
#include "update/SizeText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QNetworkReply>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr const char* kFailure = "Error occurred during download file:";

/// Below 1 when the server does not tell.
qint64 announcedSize(const QNetworkReply& reply)
{
    return reply.header(QNetworkRequest::ContentLengthHeader).toLongLong();
}

/// The file name at the end of an address; empty when there is none, or none that is safe on every system.
QString fileNameOf(const QUrl& url)
{
    const QString name = QFileInfo(url.path()).fileName();
    static const QString unsafe = u"\\/:*?\"<>|'`$;&"_s;
    const bool isSafe = !name.startsWith(u'.') &&
                        std::all_of(name.cbegin(), name.cend(), [](QChar c) { return c.isPrint() && !unsafe.contains(c); });
    return isSafe ? name : QString();
}

bool writeFile(QFile& file, const QByteArray& content)
{
    return file.write(content) == content.size() && file.flush();
}

} // namespace

Download::Download(QNetworkAccessManager& network, QObject* parent) : QObject(parent), mNetwork(network) {}

Download::~Download() = default;

void Download::start(const QString& address, const UpdateSource& source)
{
    emit reported(u"DownloadState"_s, u"Start"_s);
    const QUrl url(address);
    if (address.isEmpty()) {
        qWarning("Url is empty");
        end({});
        return;
    }
    if (!isUpdateAddress(url)) {
        qWarning().noquote() << kFailure << "not a safe address";
        end({});
        return;
    }
    awaitHostName(this, url.host(), source.downloadSilenceMs, [this, url, source](bool known) {
        if (known) {
            request(url, source);
        } else {
            qWarning().noquote() << kFailure << kTimedOut;
            end({});
        }
    });
}

void Download::request(const QUrl& url, const UpdateSource& source)
{
    const auto over = [this, name = fileNameOf(url)](const QNetworkReply& reply) { end(finish(reply, name)); };
    QNetworkReply* reply = startReply(mNetwork, url, source.downloadSilenceMs, source.mostFileBytes, over);
    mSpeedTimer.start();
    connect(reply, &QNetworkReply::metaDataChanged, this, [this, reply] { announce(*reply); });
    connect(reply, &QNetworkReply::downloadProgress, this,
            [this, reply](qint64 received, qint64 total) { progress(*reply, received, total); });
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] { take(*reply); });
}

void Download::announce(const QNetworkReply& reply)
{
    if (isRefused(reply)) {
        return;
    }
    const qint64 size = announcedSize(reply);
    if (size < 1) {
        qWarning("Content-Length not available");
    } else {
        emit reported(u"DownloadFileSize"_s, sizeText(size));
    }
}

void Download::progress(const QNetworkReply& reply, qint64 received, qint64 total)
{
    if (isRefused(reply)) {
        return;
    }
    // At its end a reply of unknown size takes what came for the whole.
    if (total < 1 || announcedSize(reply) < 1) {
        qWarning("bytesTotal not available");
        return;
    }
    const double share = static_cast<double>(received) / static_cast<double>(total);
    emit reported(u"DownloadProgress"_s, QString::number(static_cast<int>(share * 100.0)));
    emit reported(u"DownloadCompleted"_s, sizeText(received));
}

void Download::take(QNetworkReply& reply)
{
    if (isRefused(reply)) {
        return;
    }
    const qint64 elapsed = mSpeedTimer.elapsed();
    mBuffer += reply.readAll();
    if (elapsed >= 1000) {
        const qint64 came = mBuffer.size() - mLastBufferSize;
        mSpeedTimer.restart();
        mLastBufferSize = mBuffer.size();
        emit reported(u"DownloadSpeed"_s, speedText(came, elapsed));
    }
}

/// Takes stock of a reply that has ended. Returns the path of the file, empty on failure.
QString Download::finish(const QNetworkReply& reply, const QString& name)
{
    mLastBufferSize = 0;
    if (const QString failure = failureOf(reply); !failure.isEmpty()) {
        qWarning().noquote() << kFailure << failure;
        if (isRefused(reply)) {
            mBuffer.clear(); // as large as it is it would spoil every retry
        }
        return {};
    }
    const QVariant announced = reply.header(QNetworkRequest::ContentLengthHeader);
    if (announced.isValid() && announced.toLongLong() != mBuffer.size()) {
        qWarning().noquote() << kFailure << "not of the announced size";
        mBuffer.clear();
        return {};
    }
    if (name.isEmpty()) {
        qWarning().noquote() << kFailure << "fileName is empty";
        return {};
    }
    return store(name);
}

/// Writes the buffer into a fresh folder, in place of the file before. Returns the path, empty on failure.
QString Download::store(const QString& name)
{
    if (mFolder != nullptr) {
        mFolder->remove();
    }
    mFolder = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/quillon-XXXXXX"_s);
    mFolder->setAutoRemove(false);
    const QString path = mFolder->isValid() ? mFolder->filePath(name) : QDir::tempPath() + u'/' + name;
    QFile file(path);
    if (!mFolder->isValid() || !file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qWarning().noquote() << "Failed to open file for writing:" << path;
        return {};
    }
    if (!writeFile(file, mBuffer)) {
        qWarning().noquote() << "Failed to write file:" << path;
        file.remove();
        return {};
    }
    mBuffer.clear();
    return path;
}

void Download::end(const QString& path)
{
    emit reported(u"DownloadState"_s, path.isEmpty() ? u"Failed"_s : u"Success"_s);
    if (!path.isEmpty()) {
        emit succeeded(path);
    }
}

} // namespace quillon
