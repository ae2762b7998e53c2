#include "update/UpdaterBase.h"

#include "update/HostName.h"
#include "update/Reply.h"
#include "update/UpdateThread.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkReply>
#include <optional>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

constexpr const char* kFailure = "Error occurred during get json:";

/// Written by the worker, read by everybody.
struct SharedManifest {
    std::mutex mutex;
    QJsonObject object;
};

SharedManifest& sharedManifest()
{
    static auto* const manifest = new SharedManifest; // the worker may outlive the statics
    return *manifest;
}

bool takeManifest(QNetworkReply& reply)
{
    if (const QString failure = failureOf(reply); !failure.isEmpty()) {
        qWarning().noquote() << kFailure << failure;
        return false;
    }
    const QJsonDocument document = QJsonDocument::fromJson(reply.readAll());
    if (!document.isObject()) {
        qWarning("Invalid json data");
        return false;
    }
    SharedManifest& manifest = sharedManifest();
    const std::lock_guard lock(manifest.mutex);
    manifest.object = document.object();
    return true;
}

} // namespace

UpdaterBase::UpdaterBase()
    : mNetwork(new QNetworkAccessManager(this)), mDownload(new Download(*mNetwork, this)), mSource(UpdateSource::ofBuild())
{
    connect(mDownload, &Download::reported, this, &UpdaterBase::attributeChanged);
    connect(mDownload, &Download::succeeded, this, [this](const QString& path) { update(path); });
    UpdateThread::adopt(*this);
}

UpdaterBase::~UpdaterBase() = default;

bool UpdaterBase::fetchInfoAndWait()
{
    if (!UpdateThread::isRunning()) {
        return false;
    }
    QEventLoop loop;
    std::optional<bool> result;
    const quint64 mine = ++mWaitingFetches;
    const auto answered = [&](quint64 number, bool success) {
        if (number == mine) {
            result = success;
            loop.quit();
        }
    };
    connect(this, &UpdaterBase::waitingFetchFinished, &loop, answered, Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        this, [this, mine] { fetch([this, mine](bool success) { emit waitingFetchFinished(mine, success); }); },
        Qt::QueuedConnection);
    loop.exec();
    if (!result) {
        // Somebody ended all loops, and the application's own may not run yet.
        QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit, Qt::QueuedConnection);
    }
    return result.value_or(false);
}

void UpdaterBase::fetchInfo()
{
    const auto start = [this] { fetch([this](bool success) { emit fetchFinished(success); }); };
    QMetaObject::invokeMethod(this, start, Qt::QueuedConnection);
}

void UpdaterBase::download(const QString& url)
{
    QMetaObject::invokeMethod(
        this, [this, url] { mDownload->start(url, mSource); }, Qt::QueuedConnection);
}

QJsonObject UpdaterBase::manifestObject()
{
    SharedManifest& manifest = sharedManifest();
    const std::lock_guard lock(manifest.mutex);
    return manifest.object;
}

QString UpdaterBase::currentVersion() const
{
    const std::lock_guard lock(mVersionMutex);
    return mCurrentVersion;
}

void UpdaterBase::setCurrentVersion(const QString& version)
{
    const std::lock_guard lock(mVersionMutex);
    mCurrentVersion = version;
}

void UpdaterBase::setSource(const UpdateSource& source)
{
    QMetaObject::invokeMethod(
        this, [this, source] { mSource = source; }, Qt::QueuedConnection);
}

void UpdaterBase::fetch(const std::function<void(bool)>& whenDone)
{
    if (!isUpdateAddress(mSource.manifest)) {
        qWarning().noquote() << kFailure << "no update host";
        whenDone(false);
        return;
    }
    awaitHostName(this, mSource.manifest.host(), mSource.fetchSilenceMs, [this, whenDone](bool known) {
        if (!known) {
            qWarning().noquote() << kFailure << kTimedOut;
            whenDone(false);
            return;
        }
        QNetworkReply* reply = startReply(*mNetwork, mSource.manifest, mSource.fetchSilenceMs, mSource.mostManifestBytes);
        connect(reply, &QNetworkReply::finished, this, [reply, whenDone] {
            const bool success = takeManifest(*reply);
            reply->deleteLater();
            whenDone(success);
        });
    });
}
