// What the program does when its files cannot be read or written: it says so once, goes on, and leaves the user's own file whole.

#include "Stage.h"

#include <QDir>
#include <QRandomGenerator>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>

namespace
{

/// Takes from the process to come the right to write where permissions forbid it, which the superuser has.
void obeyPermissions()
{
    ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
}

void limitFileSize(qint64 pid, rlim_t bytes)
{
    const rlimit limit{bytes, RLIM_INFINITY};
    QCOMPARE(::prlimit(pid_t(pid), RLIMIT_FSIZE, &limit, nullptr), 0);
}

/// Makes a folder read-only as long as the object lives.
class ReadOnly
{
public:
    explicit ReadOnly(const QString& folder) : mFolder(folder)
    {
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
    }
    ~ReadOnly() { QFile::setPermissions(mFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner); }

private:
    QString mFolder;
};

bool turnsUp(Stage& stage, int gainDb)
{
    stage.unit().ask(QString("panel Input_IN1 GAIN %1").arg(gainDb));
    // The value is on the disk a moment before the lock beside it is gone.
    return eventually(
        [&] { return stage.stored("Input_IN1/GAIN").toInt() == gainDb && !QFile::exists(stage.workspace() + ".lock"); });
}

/// The program still hears the unit and sends its page; the page holds that gain.
void checkAlive(Stage& stage, int gainDb)
{
    stage.mark();
    stage.unit().ask("frame 1101 2");
    QVERIFY(stage.waitForPage());
    QCOMPARE(stage.sent(), livePage({{"2104", gainDb}}));
}

} // namespace

class tst_files : public QObject
{
    Q_OBJECT
private slots:
    void garbageIsKeptAside_data();
    void garbageIsKeptAside();
    void fullDisk();
    void folderThatTurnsReadOnly();
    void folderThatVanishes();
    void fileInPlaceOfTheFolder();
    void readOnlyProgramFolder();
};

void tst_files::garbageIsKeptAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QByteArray noise(4096, '\0');
    QRandomGenerator random(47);
    std::generate(noise.begin(), noise.end(), [&] { return char(random.generate()); });
    QTest::newRow("noise") << noise;
    QTest::newRow("zeros, as a crashed file system leaves them") << QByteArray(4096, '\0');
    const QByteArray header = "[ConfigFileHeader]\nDeviceName=R47\n";
    QTest::newRow("noise behind a good header") << header + noise;
    QTest::newRow("another format") << QByteArray("{\"strips\": [1, 2\n[[[\n=\n");
}

void tst_files::garbageIsKeptAside()
{
    QFETCH(const QByteArray, content);
    Stage stage;
    QVERIFY(stage.start() && stage.waitForPage());
    QCOMPARE(stage.quit(), 0);
    const QString path = stage.workspace();
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    file.close();

    stage.mark();
    QVERIFY(stage.start() && stage.waitForPage());
    QCOMPARE(stage.sent(), QStringList{"1101 1"} + livePage());
    QVERIFY(turnsUp(stage, 44));
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles().size(), 1);
    // It stands where it was, or aside where its name was needed.
    int kept = 0;
    for (const QFileInfo& each : QDir(stage.folder("Workspace/R47/Live")).entryInfoList(QDir::Files)) {
        QFile found(each.filePath());
        kept += found.open(QIODevice::ReadOnly) && found.readAll() == content;
    }
    QCOMPARE(kept, 1);

    stage.mark();
    QVERIFY(stage.start() && stage.waitForPage());
    QCOMPARE(stage.sent(), QStringList{"1101 1"} + livePage({{"2104", 44}}));
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles().size(), 1);
}

void tst_files::fullDisk()
{
    Stage stage;
    stage.setBeforeStart([] { ::signal(SIGXFSZ, SIG_IGN); });
    QVERIFY(stage.start() && stage.waitForPage());
    QVERIFY(turnsUp(stage, 40));
    const QByteArray whole = stage.workspaceBytes();

    limitFileSize(stage.program().processId(), 100);
    stage.unit().ask("panel Input_IN1 GAIN 41");
    QVERIFY(eventually([&] { return stage.troubles().size() == 1; }));
    QCOMPARE(stage.workspaceBytes(), whole);
    checkAlive(stage, 41);
    // Room again: what could not be written is not lost.
    limitFileSize(stage.program().processId(), RLIM_INFINITY);
    QVERIFY(eventually([&] { return stage.stored("Input_IN1/GAIN").toInt() == 41; }, 4 * kConsoleMs));

    limitFileSize(stage.program().processId(), 100);
    const QByteArray later = stage.workspaceBytes();
    stage.unit().ask("panel Input_IN1 GAIN 42");
    QVERIFY(eventually([&] { return stage.troubles().size() == 2; }));
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.workspaceBytes(), later);
    QCOMPARE(QDir(stage.folder("Workspace/R47/Live")).entryList(QDir::Files).size(), 1);
    QCOMPARE(stage.troubles().size(), 2);
}

void tst_files::folderThatTurnsReadOnly()
{
    Stage stage;
    stage.setBeforeStart(obeyPermissions);
    QVERIFY(stage.start() && stage.waitForPage());
    QVERIFY(turnsUp(stage, 40));
    const QByteArray whole = stage.workspaceBytes();
    {
        const ReadOnly readOnly(stage.folder("Workspace/R47/Live"));
        stage.unit().ask("panel Input_IN1 GAIN 41");
        QVERIFY(eventually([&] { return stage.troubles().size() == 1; }));
        QCOMPARE(stage.workspaceBytes(), whole);
        checkAlive(stage, 41);
    }
    QVERIFY(eventually([&] { return stage.stored("Input_IN1/GAIN").toInt() == 41; }, 4 * kConsoleMs));
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles().size(), 1);
}

void tst_files::folderThatVanishes()
{
    Stage stage;
    QVERIFY(stage.start() && stage.waitForPage());
    QVERIFY(turnsUp(stage, 40));
    QVERIFY(QDir(stage.folder("Workspace")).removeRecursively());
    stage.unit().ask("panel Input_AUX MUTE 1");
    QVERIFY(eventually([&] { return stage.stored("Input_AUX/MUTE").toBool(); }));
    QCOMPARE(stage.quit(), 0);
    QVERIFY(QDir(stage.folder("Workspace")).removeRecursively());
    stage.mark();
    QVERIFY(stage.start() && stage.waitForPage());
    QCOMPARE(stage.sent(), QStringList{"1101 1"} + livePage());
    QVERIFY(turnsUp(stage, 30));
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles(), QStringList());
}

void tst_files::fileInPlaceOfTheFolder()
{
    Stage stage;
    QFile file(stage.folder("Workspace"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("mine") == 4);
    file.close();
    // Another folder takes the place of theirs: the controls work, and what they are set to is kept.
    stage.mark();
    QVERIFY(stage.start() && stage.waitForPage());
    QCOMPARE(stage.sent(), QStringList{"1101 1"} + livePage());
    stage.unit().ask("panel Input_IN1 GAIN 30");
    checkAlive(stage, 30);
    QCOMPARE(stage.quit(), 0);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("mine"));
    QCOMPARE(stage.troubles({"WorkspaceSubject::"}), QStringList());
    QVERIFY(!stage.troubles().isEmpty());
}

void tst_files::readOnlyProgramFolder()
{
    Stage stage;
    stage.setBeforeStart(obeyPermissions);
    const ReadOnly readOnly(stage.folder());
    stage.mark();
    QVERIFY(stage.start() && stage.waitForPage());
    QCOMPARE(stage.sent(), QStringList{"1101 1"} + livePage());
    stage.unit().ask("panel Input_IN1 GAIN 41");
    QVERIFY(!QFile::exists(stage.folder("Workspace")));
    QCOMPARE(stage.quit(), 0);
    stage.mark();
    QVERIFY(stage.start() && stage.waitForPage());
    QCOMPARE(stage.sent(), QStringList{"1101 1"} + livePage({{"2104", 41}}));
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles(), QStringList());
}

QTEST_GUILESS_MAIN(tst_files)
#include "tst_files.moc"
