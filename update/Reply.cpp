#include "update/Reply.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr const char* kRefusal = "refusal";
constexpr const char* kOver = "over";
constexpr int kMostRedirects = 5;
constexpr qsizetype kMostLogged = 300;

// A server's words end up in the log: without its line ends and escape sequences, and not all day long.
QString printable(const QString& text)
{
    QString line = text.left(kMostLogged);
    for (QChar& c : line) {
        if (!c.isPrint()) {
            c = u'?';
        }
    }
    return line;
}

} // namespace

bool isUpdateAddress(const QUrl& url)
{
    return url.isValid() && url.scheme() == u"https"_s && !url.host().isEmpty();
}

QNetworkReply* startReply(QNetworkAccessManager& network, const QUrl& url, int silenceMs, qint64 mostBytes,
                          const std::function<void(QNetworkReply&)>& whenOver)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMostRedirects);
    // Nothing is inflated on the way, so that the announced size is that of the file.
    request.setRawHeader("Accept-Encoding", "identity");
    network.setTransferTimeout(silenceMs);
    QNetworkReply* reply = network.get(request);
    const auto over = [reply, whenOver] {
        if (!reply->property(kOver).toBool()) {
            reply->setProperty(kOver, true);
            whenOver(*reply);
            reply->deleteLater();
        }
    };
    // Not aborted, but dropped: an error that is on its way already would be a second one.
    const auto refuse = [reply, over](const QString& why) {
        if (!isRefused(*reply)) {
            reply->setProperty(kRefusal, why);
            QMetaObject::invokeMethod(reply, over, Qt::QueuedConnection);
        }
    };
    QObject::connect(reply, &QNetworkReply::finished, reply, over);
    QObject::connect(reply, &QNetworkReply::redirected, reply, [refuse](const QUrl& to) {
        if (!isUpdateAddress(to)) {
            refuse(u"sent on to an address that is not safe"_s);
        }
    });
    QObject::connect(reply, &QNetworkReply::metaDataChanged, reply, [reply, mostBytes, refuse] {
        if (reply->header(QNetworkRequest::ContentLengthHeader).toLongLong() > mostBytes) {
            refuse(u"too large"_s);
        }
    });
    QObject::connect(reply, &QNetworkReply::downloadProgress, reply, [mostBytes, refuse](qint64 received, qint64) {
        if (received > mostBytes) {
            refuse(u"too large"_s);
        }
    });
    return reply;
}

QString failureOf(const QNetworkReply& reply)
{
    if (isRefused(reply)) {
        return reply.property(kRefusal).toString();
    }
    switch (reply.error()) {
    case QNetworkReply::NoError:
        return {};
    case QNetworkReply::OperationCanceledError: // as the transfer time-out shows itself
        return QLatin1StringView(kTimedOut);
    default:
        return printable(reply.errorString());
    }
}

bool isRefused(const QNetworkReply& reply)
{
    return reply.property(kRefusal).isValid();
}

} // namespace quillon
