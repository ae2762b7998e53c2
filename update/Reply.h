#pragma once

#include <QString>
#include <QUrl>
#include <functional>

class QNetworkAccessManager;
class QNetworkReply;

namespace quillon
{

/// Why a request failed whose host was silent.
inline constexpr const char* kTimedOut = "Request timed out";

/// Whether the updates speak to this address: HTTPS with a host.
bool isUpdateAddress(const QUrl& url);

/// Begins to get an address, and calls back once when that is over; the reply goes then. It is over also after that much silence,
/// when the reply is announced as or grows beyond `mostBytes`, and when it is sent on to somewhere that is no update address.
QNetworkReply* startReply(QNetworkAccessManager& network, const QUrl& url, int silenceMs, qint64 mostBytes,
                          const std::function<void(QNetworkReply&)>& whenOver);

/// Why a reply that is over failed, fit for one line of the log; empty when it did not.
QString failureOf(const QNetworkReply& reply);
/// Whether it is our side that will not have it.
bool isRefused(const QNetworkReply& reply);

} // namespace quillon
