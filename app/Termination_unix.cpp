#include "app/Termination.h"

#include "app/Application.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace quillon
{

namespace
{

constexpr int kSignals[]{SIGTERM, SIGINT, SIGHUP};
int gPipe[2] = {-1, -1};

// Only write() is safe here; the notifier does the rest on the GUI thread.
void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(gPipe[1], &byte, 1);
}

/// As nohup asks for: it stays so.
bool isIgnored(int signal)
{
    struct sigaction present {
    };
    return ::sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

} // namespace

Termination::Termination()
{
    if (::pipe2(gPipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    mNotifier = std::make_unique<QSocketNotifier>(gPipe[0], QSocketNotifier::Read);
    QObject::connect(mNotifier.get(), &QSocketNotifier::activated, &Application::leave);
    struct sigaction action {
    };
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals) {
        if (!isIgnored(signal)) {
            ::sigaction(signal, &action, nullptr);
        }
    }
}

Termination::~Termination()
{
    for (const int signal : kSignals) {
        if (!isIgnored(signal)) {
            std::signal(signal, SIG_DFL);
        }
    }
    mNotifier.reset();
    for (int& end : gPipe) {
        if (end >= 0) {
            ::close(end);
            end = -1;
        }
    }
}

} // namespace quillon
