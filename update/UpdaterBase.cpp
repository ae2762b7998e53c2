#include "update/UpdaterBase.h"

#include "update/HostName.h"
#include "update/Reply.h"
#include "update/UpdateThread.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkReply>
#include <memory>
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

/// What a waiting fetch has come to, once it has.
class WaitingFetch
{
public:
    void setResult(bool success)
    {
        const std::lock_guard lock(mMutex);
        mResult = success;
    }
    std::optional<bool> result()
    {
        const std::lock_guard lock(mMutex);
        return mResult;
    }

private:
    std::mutex mMutex;
    std::optional<bool> mResult;
};

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
    QEventLoop loop;
    const auto waiting = std::make_shared<WaitingFetch>();
    const auto look = [&loop, &waiting] {
        if (waiting->result()) {
            loop.quit();
        }
    };
    connect(this, &UpdaterBase::waitingFetchFinished, &loop, look, Qt::QueuedConnection);
    const auto tell = [this, waiting](bool success) {
        waiting->setResult(success);
        emit waitingFetchFinished();
    };
    if (!UpdateThread::post([this, tell] { fetch(tell); })) {
        return false;
    }
    loop.exec();
    const std::optional<bool> result = waiting->result();
    if (!result) {
        // Somebody ended all loops, and the application's own may not run yet.
        QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit, Qt::QueuedConnection);
    }
    return result.value_or(false);
}

void UpdaterBase::fetchInfo()
{
    UpdateThread::post([this] { fetch([this](bool success) { emit fetchFinished(success); }); });
}

void UpdaterBase::download(const QString& url)
{
    UpdateThread::post([this, url] { mDownload->start(url, mSource); });
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
    UpdateThread::post([this, source] { mSource = source; });
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
        const auto over = [whenDone](QNetworkReply& reply) { whenDone(takeManifest(reply)); };
        startReply(*mNetwork, mSource.manifest, mSource.fetchSilenceMs, mSource.mostManifestBytes, over);
    });
}
