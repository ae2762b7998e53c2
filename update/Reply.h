#pragma once

#include <QString>
#include <QUrl>

class QNetworkAccessManager;
class QNetworkReply;

namespace quillon
{

/// Why a request failed whose host was silent.
inline constexpr const char* kTimedOut = "Request timed out";

/// Whether the updates speak to this address: HTTPS with a host.
bool isUpdateAddress(const QUrl& url);

/// Begins to get an address. The reply is aborted after that much silence, when it is announced as or grows beyond `mostBytes`, and
/// when it is sent on to somewhere that is no update address.
QNetworkReply* startReply(QNetworkAccessManager& network, const QUrl& url, int silenceMs, qint64 mostBytes);

/// Why a finished reply failed, fit for one line of the log; empty when it did not.
QString failureOf(const QNetworkReply& reply);
/// Whether it was our side that would not have it.
bool isRefused(const QNetworkReply& reply);

} // namespace quillon
