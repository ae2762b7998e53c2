#pragma once
// The real program on an r47d of its own, in a folder of its own: its home, its workspaces and its log are nobody else's. Both end
// with the stage.

#include "tests/virtual/RunningR47.h"

#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <csignal>
#include <functional>

#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
inline constexpr int kPatience = 4; // instrumented code on a shared machine
#else
inline constexpr int kPatience = 1;
#endif

/// A console has to stand within 2 s of the plug, after the half second in which nobody looks.
inline constexpr int kConsoleMs = 2500 * kPatience;
inline constexpr int kQuitMs = 2000 * kPatience;

/// While a device comes and goes the driver fails to answer for one that has just left.
inline const QStringList kDriverTrouble{"USBAudioAPI::\\w+ //"};

class Stage
{
public:
    explicit Stage(const QStringList& unitOptions = {"--rate", "0"});
    ~Stage();

    RunningR47& unit() { return mUnit; }
    QProcess& program() { return mProgram; }
    /// Where the program stands and, below ./Workspace, its workspaces.
    QString folder(const QString& name = {}) const { return mFolder.filePath(name); }
    /// Runs in the program's process before it becomes the program.
    void setBeforeStart(std::function<void()> step) { mBeforeStart = std::move(step); }

    /// Starts the program and waits until it can be told to end.
    bool start();
    /// Tells it to end as a session does. Its exit code, or -1 when it crashed or was still there after kQuitMs.
    int quit();
    /// What the program has written to its standard error since the stage was built.
    QByteArray log();
    /// Lines of the log that tell of trouble, but for those that match one of the patterns.
    QStringList troubles(const QStringList& allowed = {});

    /// From here on frames are counted and recorded anew.
    void mark();
    /// What the program has sent since the mark: "1101 1" for each frame, in order, without what only a fresh page adds.
    QStringList sent();
    QStringList sentWithFresh();
    /// The same with the microseconds of each frame.
    QList<std::pair<quint64, QString>> sentAt();
    /// Whether the page has been sent down since the mark.
    bool waitForPage(int timeoutMs = kConsoleMs) { return bool(mUnit.tell(QString("wait 1120 0 %1").arg(timeoutMs))); }

    /// The remembered workspace of the Live page: its path, and a value of it ("Input_IN1/GAIN"), invalid where it has none.
    QString workspace() const;
    QVariant stored(const QString& key) const;
    QByteArray workspaceBytes() const;

private:
    QTemporaryDir mFolder;
    RunningR47 mUnit;
    QProcess mProgram;
    QByteArray mLog;
    std::function<void()> mBeforeStart;
    int mRecords = 0;
};

/// Looks again and again until it holds; false when the time is up.
template<typename Condition> bool eventually(Condition condition, int timeoutMs = kConsoleMs)
{
    QElapsedTimer time;
    time.start();
    while (!condition()) {
        if (time.elapsed() > timeoutMs)
            return false;
        QTest::qWait(5);
    }
    return true;
}

/// The page of a work mode as it goes down: the values of a first start, and others where they are told ("2104" is 40). What a
/// first start sends is seen once in a process, from a program of its own. A failed test and nothing when that was no whole page.
QStringList pageOf(int mode, const QMap<QString, int>& changed = {});
inline QStringList livePage(const QMap<QString, int>& changed = {})
{
    return pageOf(2, changed);
}
