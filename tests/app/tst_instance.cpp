// Several starts of one user: this test is also the program that it starts, with windows of the two names that are looked for.

#include "app/Application.h"
#include "app/AutoStartManager.h"
#include "app/SingleInstanceManager.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QProcess>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

/// Tells when it is brought forth, and closes as the program's windows do.
class TellingWindow : public QWidget
{
    Q_OBJECT
protected:
    void showEvent(QShowEvent*) override { tell("shown"); }
    void closeEvent(QCloseEvent* event) override
    {
        event->ignore();
        SingleInstanceManager::instance().stepBack(*this);
        tell(isHidden() ? "hidden" : isMinimized() ? "minimized" : "open");
    }

private:
    void tell(const char* what) const
    {
        std::printf("%s %s\n", metaObject()->className(), what);
        std::fflush(stdout);
    }
};
class MainWindow_Base : public TellingWindow
{
    Q_OBJECT
};
class Console : public MainWindow_Base
{
    Q_OBJECT
};
class DeviceConnector : public TellingWindow
{
    Q_OBJECT
};

namespace
{

constexpr int kPatienceMs = 20000;

/// What a start does: "up", and then the lines of its input: "close" a window, "quit".
int runProgram(int argc, char** argv, const QStringList& windows)
{
    const quillon::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    SingleInstanceManager::instance().checkAndActivate();
    SingleInstanceManager::instance().openTray();
    std::vector<std::unique_ptr<QWidget>> made;
    for (const QString& name : windows) {
        made.push_back(name == u"Console"_s ? std::unique_ptr<QWidget>(new Console)
                                            : std::unique_ptr<QWidget>(new DeviceConnector));
    }
    std::printf("up\n");
    std::fflush(stdout);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&made] {
        char line[64] = {};
        if (::read(STDIN_FILENO, line, sizeof line - 1) <= 0 || QByteArray(line) == "quit\n") {
            QCoreApplication::quit();
        } else {
            made.front()->close();
        }
    });
    return QApplication::exec();
}

/// A user's session: the folder where his programs meet.
class Session
{
public:
    Session() { QFile::setPermissions(mFolder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner); }
    QString file(const QString& name) const { return mFolder.filePath(name); }
    QString server() const { return file(QCoreApplication::applicationName()); }
    std::unique_ptr<QProcess> start(const QStringList& windows = {},
                                    const QString& program = QCoreApplication::applicationFilePath())
    {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_RUNTIME_DIR"_s, mFolder.path());
        environment.insert(u"XDG_CONFIG_HOME"_s, file(u"config"_s));
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"disabled:"_s);
        process->setProcessEnvironment(environment);
        process->start(program, QStringList{u"--program"_s} + windows);
        return process;
    }
    bool tell(const QByteArray& text) const
    {
        QLocalSocket socket;
        socket.connectToServer(server());
        if (!socket.waitForConnected(1000)) {
            return false;
        }
        socket.write(text);
        while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(1000)) {
        }
        return true;
    }

private:
    QTemporaryDir mFolder;
};

bool says(QProcess& program, const QByteArray& line, int timeoutMs = kPatienceMs)
{
    QElapsedTimer timer;
    timer.start();
    do {
        while (program.canReadLine()) {
            if (program.readLine().trimmed() == line) {
                return true;
            }
        }
    } while (timer.elapsed() < timeoutMs && program.waitForReadyRead(std::max(1, timeoutMs - int(timer.elapsed()))));
    return false;
}

/// What it complained of. The platform without a screen says so of every window.
QByteArray troubles(QProcess& program)
{
    return program.readAllStandardError().replace("This plugin does not support raise()\n", "");
}

/// Ended by itself, without a word: another one runs.
bool gaveWay(QProcess& program)
{
    return (program.state() == QProcess::NotRunning || program.waitForFinished(kPatienceMs)) &&
           program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0 && program.readAllStandardOutput().isEmpty() &&
           program.readAllStandardError().isEmpty();
}

bool quits(QProcess& program)
{
    program.write("quit\n");
    return program.waitForFinished(kPatienceMs) && program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
}

} // namespace

class TestInstance : public QObject
{
    Q_OBJECT
private slots:
    void secondStartRaises_data();
    void secondStartRaises();
    void othersAreIgnored();
    void aKilledOneLocksNobodyOut();
    void manyAtOnce();
    void sessionsAreApart();
    void aTidiedFolderMakesNoSecond();
    void aHeldTurnDelaysOnly();
    void closingWithoutTray();
    void autoStart_data();
    void autoStart();
    void autoStartInVain();
};

void TestInstance::secondStartRaises_data()
{
    QTest::addColumn<QStringList>("windows");
    QTest::addColumn<QByteArray>("raised");
    QTest::newRow("connection only") << QStringList{u"DeviceConnector"_s} << QByteArray("DeviceConnector shown");
    QTest::newRow("console first") << QStringList{u"Console"_s, u"DeviceConnector"_s} << QByteArray("Console shown");
    QTest::newRow("console last") << QStringList{u"DeviceConnector"_s, u"Console"_s} << QByteArray("Console shown");
    QTest::newRow("no window") << QStringList{} << QByteArray();
}

void TestInstance::secondStartRaises()
{
    QFETCH(const QStringList, windows);
    QFETCH(const QByteArray, raised);
    Session session;
    const auto first = session.start(windows);
    QVERIFY(says(*first, "up"));
    QVERIFY(gaveWay(*session.start(windows)));
    QVERIFY(raised.isEmpty() || says(*first, raised));
    QVERIFY(quits(*first));
    QCOMPARE(first->readAllStandardOutput(), windows.isEmpty() ? QByteArray() : raised.split(' ').first() + " hidden\n");
    QCOMPARE(troubles(*first), QByteArray());
    QVERIFY2(!QFile::exists(session.server()), "the server stayed");
}

void TestInstance::othersAreIgnored()
{
    Session session;
    const auto first = session.start({u"Console"_s});
    QVERIFY(says(*first, "up"));
    const struct stat info = [&] {
        struct stat found {
        };
        ::stat(QFile::encodeName(session.server()).constData(), &found);
        return found;
    }();
    QCOMPARE(info.st_mode & 077, 0U);
    for (const QByteArray& text : {QByteArray(), QByteArray("ACTIVATE\n"), QByteArray("activate"), QByteArray("ACTIVAT"),
                                   QByteArray("ACTIVATEACTIVATE"), QByteArray("ACTIVATE\0", 9), QByteArray(1 << 20, 'A')}) {
        QVERIFY(session.tell(text));
    }
    // Many that say nothing are no reason to go deaf.
    std::vector<std::unique_ptr<QLocalSocket>> silent;
    for (int i = 0; i < 200; ++i) {
        silent.push_back(std::make_unique<QLocalSocket>());
        silent.back()->connectToServer(session.server());
        QVERIFY(silent.back()->waitForConnected(1000));
    }
    QVERIFY2(!says(*first, "Console shown", 300), "raised by noise");
    silent.clear();
    QVERIFY(gaveWay(*session.start()));
    QVERIFY(says(*first, "Console shown"));
    QVERIFY(quits(*first));
    QCOMPARE(troubles(*first), QByteArray());
}

void TestInstance::aKilledOneLocksNobodyOut()
{
    Session session;
    for (int i = 0; i < 5; ++i) {
        const auto program = session.start({u"Console"_s});
        QVERIFY2(says(*program, "up"), program->readAllStandardError().constData());
        QVERIFY(gaveWay(*session.start()));
        QVERIFY(says(*program, "Console shown"));
        program->kill();
        QVERIFY(program->waitForFinished());
        QCOMPARE(troubles(*program), QByteArray());
        QVERIFY(QFile::exists(session.server()));
        if (i % 2 == 1) {
            // A log-out takes the file; the memory stays, and a new file often gets the number of which its key is made.
            QVERIFY(QFile::remove(session.server() + u".memory"_s));
        }
    }
    // What stands in the server's place and is none.
    QFile::remove(session.server());
    QFile file(session.server());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const auto program = session.start({u"Console"_s});
    QVERIFY(says(*program, "up"));
    QVERIFY(gaveWay(*session.start()));
    QVERIFY(says(*program, "Console shown"));
    QVERIFY(quits(*program));
}

void TestInstance::manyAtOnce()
{
    const int count = qEnvironmentVariableIntValue("STARTS") > 0 ? qEnvironmentVariableIntValue("STARTS") : 20;
    Session session;
    std::vector<std::unique_ptr<QProcess>> starts;
    starts.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        starts.push_back(session.start());
    }
    int gone = 0;
    QVERIFY(QTest::qWaitFor(
        [&] {
            gone = int(std::count_if(starts.begin(), starts.end(),
                                     [](const auto& start) { return start->state() == QProcess::NotRunning; }));
            return gone >= count - 1;
        },
        60000));
    QTest::qWait(200);
    for (const auto& start : starts) {
        if (start->state() == QProcess::NotRunning) {
            QVERIFY(gaveWay(*start));
        } else {
            QVERIFY(says(*start, "up"));
            QVERIFY(quits(*start));
        }
    }
    QCOMPARE(gone, count - 1);
}

void TestInstance::sessionsAreApart()
{
    Session here, there;
    const auto one = here.start({u"Console"_s});
    const auto two = there.start({u"Console"_s});
    QVERIFY(says(*one, "up"));
    QVERIFY(says(*two, "up"));
    QVERIFY(gaveWay(*there.start()));
    QVERIFY(says(*two, "Console shown"));
    QVERIFY(quits(*one));
    QVERIFY2(gaveWay(*there.start()), "the lock of another session went with the first");
    QVERIFY(quits(*two));
    QVERIFY(!one->readAllStandardOutput().contains("shown"));
}

void TestInstance::aTidiedFolderMakesNoSecond()
{
    Session session;
    const auto first = session.start({u"Console"_s});
    QVERIFY(says(*first, "up"));
    QVERIFY(QFile::remove(session.server() + u".memory"_s));
    QVERIFY(gaveWay(*session.start()));
    QVERIFY(says(*first, "Console shown"));
    QVERIFY(quits(*first));
}

void TestInstance::aHeldTurnDelaysOnly()
{
    Session session;
    const QByteArray lock = QFile::encodeName(session.server() + u".lock"_s);
    const int file = ::open(lock.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    QCOMPARE(::flock(file, LOCK_EX), 0);
    const auto first = session.start();
    QVERIFY2(!says(*first, "up", 500), "did not wait for its turn");
    QVERIFY(says(*first, "up"));
    QVERIFY(gaveWay(*session.start()));
    ::close(file);
    QVERIFY(quits(*first));
}

void TestInstance::closingWithoutTray()
{
    Session session;
    const auto program = session.start({u"Console"_s});
    QVERIFY(says(*program, "up"));
    QVERIFY(gaveWay(*session.start()));
    QVERIFY(says(*program, "Console shown"));
    program->write("close\n");
    QVERIFY2(says(*program, "Console minimized"), "nothing could bring it back");
    QVERIFY(gaveWay(*session.start()));
    program->write("close\n");
    QVERIFY(says(*program, "Console minimized"));
    QVERIFY2(quits(*program), "a window that stays keeps the program from ending");
    QVERIFY(says(*program, "Console hidden"));
}

void TestInstance::autoStart_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("exec");
    QTest::newRow("plain") << u"quillon"_s << QByteArray("quillon");
    QTest::newRow("blank and Chinese") << u"我的 程序"_s << QByteArray("我的 程序");
    QTest::newRow("field code") << u"100%u"_s << QByteArray("100%%u");
    QTest::newRow("reserved") << u"a\"b`c$d\\e"_s << QByteArray(R"(a\\"b\\`c\\$d\\\\e)");
    QTest::newRow("line") << u"a\nb"_s << QByteArray(R"(a\nb)");
}

void TestInstance::autoStart()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, exec);
    Session session;
    const QString program = session.file(name);
    std::error_code error;
    std::filesystem::create_hard_link(QCoreApplication::applicationFilePath().toStdString(), program.toStdString(), error);
    QVERIFY(!error || QFile::copy(QCoreApplication::applicationFilePath(), program));
    const auto set = [&](const char* state) {
        const auto process = session.start({QString::fromLatin1(state)}, program);
        return process->waitForFinished(kPatienceMs) && process->exitCode() == 0 && process->readAllStandardError().isEmpty();
    };
    const QString path = session.file(u"config/autostart/quillon.desktop"_s);
    QVERIFY2(set("off"), "harmless where there is none");
    QVERIFY(set("on"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArrayList lines = file.readAll().split('\n');
    QCOMPARE(lines.first(), QByteArray("[Desktop Entry]"));
    QVERIFY(lines.contains("Type=Application") && lines.contains("Name=Quillon") &&
            lines.contains("X-GNOME-Autostart-enabled=true"));
    QVERIFY2(lines.contains("Exec=\"" + QFile::encodeName(session.file(u"x"_s).chopped(1)) + exec + '"'),
             lines.join('\n').constData());
    QVERIFY(set("on"));
    QVERIFY(set("off"));
    QVERIFY(!QFile::exists(path));
}

void TestInstance::autoStartInVain()
{
    const QTemporaryDir config;
    QFile wall(config.filePath(u"autostart"_s)); // a folder that can not be made, also for root
    QVERIFY(wall.open(QIODevice::WriteOnly));
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    const QRegularExpression warning(u"^AutoStartManager::setAutoStart //cannot change .*/autostart/quillon.desktop$"_s);
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    QTest::ignoreMessage(QtWarningMsg, warning);
    AutoStartManager::setAutoStart(true);
    AutoStartManager::setAutoStart(false);
}

int main(int argc, char** argv)
{
    const QStringList arguments(argv + 1, argv + argc);
    if (arguments.value(0) != u"--program"_s) {
        const QCoreApplication application(argc, argv);
        TestInstance test;
        return QTest::qExec(&test, argc, argv);
    }
    if (arguments.value(1) == u"on"_s || arguments.value(1) == u"off"_s) {
        const QCoreApplication application(argc, argv);
        AutoStartManager::setAutoStart(arguments[1] == u"on"_s);
        return 0;
    }
    return runProgram(argc, argv, arguments.mid(1));
}

#include "tst_instance.moc"
