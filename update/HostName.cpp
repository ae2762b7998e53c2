#include "update/HostName.h"

#include "update/PlatformSteps.h"

#include <QDeadlineTimer>
#include <QHostAddress>
#include <QTimer>
#include <atomic>
#include <memory>
#include <thread>

namespace quillon
{

namespace
{

constexpr int kLookMs = 5;

} // namespace

void awaitHostName(QObject* context, const QString& host, int mostMs, const std::function<void(bool)>& whenDone)
{
    if (QHostAddress().setAddress(host)) {
        whenDone(true);
        return;
    }
    const auto isDone = std::make_shared<std::atomic<bool>>(false);
    // Left to itself: all that it touches afterwards is the flag.
    std::thread([isDone, name = host.toUtf8()] {
        lookUpHost(name.constData());
        *isDone = true;
    }).detach();
    auto* timer = new QTimer(context);
    const QDeadlineTimer deadline(mostMs);
    QObject::connect(timer, &QTimer::timeout, context, [timer, isDone, deadline, whenDone] {
        if (*isDone || deadline.hasExpired()) {
            timer->stop();
            timer->deleteLater();
            whenDone(*isDone);
        }
    });
    timer->start(kLookMs);
}

} // namespace quillon
