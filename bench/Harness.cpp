#include "bench/Harness.h"

#include "app/AppSettingsSubject.h"
#include "app/GlobalFont.h"
#include "app/LogHandler.h"
#include "controls/Accessibility.h"
#include "device/USBAudioAPI.h"
#include "device/USBAudioManager.h"
#include "device/USBHIDAPI.h"
#include "resources/Resources.h"
#include "workspace/WorkspaceSubject.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSettings>
#include <cstdio>
#include <unistd.h>

namespace bench
{

void fail(const QString& reason)
{
    std::fprintf(stderr, "quillon-bench: %s\n", qPrintable(reason));
    std::fflush(stderr);
    ::_exit(1);
}

Home::Home()
{
    quillon::installLogHandler();
    quillon::initResources();
    GlobalFont::instance().load(quillon::applicationFontPaths());
    quillon::installControlAccessibility();
    AppSettingsSubject::instance(); // names the application, and with it the settings file
    USBAudioAPI::instance().Init(); // before the settings move: the driver is registered in the user's own
    USBAudioManager::instance();
    USBHIDAPI::instance().init();
    QDir::setCurrent(mFolder.path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, mFolder.path());
    AppSettingsSubject::instance().init();
}

Home::~Home()
{
    WorkspaceSubject::instance().close();
    QDir::setCurrent(QDir::rootPath());
}

std::string Unit::ask(const QString& line, int timeoutMs)
{
    const r47::Reply reply = mControl.command(line.toStdString(), timeoutMs);
    if (!reply) {
        fail(line + ": " + QString::fromStdString(reply.text));
    }
    return reply.text;
}

std::vector<std::int64_t> Unit::stamps(const QString& code)
{
    std::vector<std::int64_t> times;
    const auto list = QJsonDocument::fromJson(QByteArray::fromStdString(ask("stamps " + code))).array();
    for (const auto& stamp : list) {
        times.push_back(stamp[0].toInteger());
    }
    return times;
}

bool ToldConsole::event(QEvent* event)
{
    const bool fromThread = event->type() == QEvent::MetaCall;
    const bool result = MainWindow_R47::event(event);
    if (fromThread && told) {
        told();
    }
    return result;
}

void runUntil(const std::function<bool()>& condition, int timeoutMs, const char* what)
{
    // Rarely enough to leave the figures alone.
    constexpr int kLookMs = 20;
    const QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired()) {
            fail(QString("no %1 within %2 ms").arg(what).arg(timeoutMs));
        }
        runFor(kLookMs);
    }
}

void runFor(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

void connectConsole(MainWindow_R47& console, Unit& unit)
{
    unit.ask("clear");
    console.startConnection();
    runUntil([&] { return unit.ask("count 1120") == "2"; }, 5000, "console");
    runFor(500);
}

} // namespace bench
