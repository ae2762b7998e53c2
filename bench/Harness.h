#pragma once
// The program's own parts in this process, on the r47d of $R47_DIR.

#include "bench/Figures.h"
#include "console/MainWindow_R47.h"
#include "virtual/ControlClient.h"

#include <QTemporaryDir>
#include <functional>

namespace bench
{

/// Ends the process with a reason: a figure that can't be had must not look like one.
[[noreturn]] void fail(const QString& reason);

/// What main() sets up before its first window, with settings and workspaces in a temporary folder.
class Home
{
public:
    Home();
    ~Home();
    Q_DISABLE_COPY_MOVE(Home)

private:
    QTemporaryDir mFolder;
};

/// One connection to r47d. A command that is not done ends the process.
class Unit
{
public:
    std::string ask(const QString& line, int timeoutMs = 60000);
    /// When each frame of a code came in since the last "clear", in nanoseconds.
    std::vector<std::int64_t> stamps(const QString& code);

private:
    r47::ControlClient mControl{r47::defaultFolder(), 2000};
};

/// The console, telling after each event that another thread has sent it.
class ToldConsole : public MainWindow_R47
{
public:
    std::function<void()> told;

protected:
    bool event(QEvent* event) override;
};

/// Runs the event loop until the condition holds; ends the process after the time.
void runUntil(const std::function<bool()>& condition, int timeoutMs, const char* what);
/// Runs the event loop for a time.
void runFor(int ms);
/// Connects the console and lets it come to rest: shown, its page loaded.
void connectConsole(MainWindow_R47& console, Unit& unit);

QJsonObject changeToFrame(const QStringList& arguments);
QJsonObject inboundToControl(const QStringList& arguments);
QJsonObject floodConsole(const QStringList& arguments);
QJsonObject floodReader(const QStringList& arguments);
QJsonObject writerRate(const QStringList& arguments);
QJsonObject loadWorkspace(const QStringList& arguments);
QJsonObject loadPage(const QStringList& arguments);
QJsonObject runMeters(const QStringList& arguments);
QJsonObject arrive(const QStringList& arguments);

} // namespace bench
