#include "tests/workspace/StoreFixture.h"
#include "workspace/WorkspaceChoice.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

/// While it lives, no file of the process can take more than a few bytes: a full disk, which also binds the superuser.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes = 0)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &mBefore);
        rlimit none = mBefore;
        none.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &mBefore); }

private:
    rlimit mBefore{};
};

/// While it lives, nothing can be made or renamed in a folder; the superuser steps down for that time.
class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString& folder) : mFolder(QFile::encodeName(folder)), mUser(::geteuid())
    {
        // The way to the folder is open to everybody already, but for the test's own temporary directory.
        const QByteArray root = QFile::encodeName(QDir::cleanPath(folder + "/../../.."_L1));
        if (::chmod(root.constData(), 0755) != 0 || ::chmod(mFolder.constData(), 0555) != 0 ||
            (mUser == 0 && ::seteuid(65534) != 0)) {
            qFatal("the test could not make its folder read-only");
        }
    }
    ~ReadOnlyFolder()
    {
        if (::seteuid(mUser) != 0 || ::chmod(mFolder.constData(), 0755) != 0) {
            qFatal("the test could not undo its read-only folder");
        }
    }

private:
    QByteArray mFolder;
    uid_t mUser;
};

} // namespace

class TestHostile : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        mStore = std::make_unique<StoreFixture>();
        QSettings().clear();
    }
    void cleanup() { mStore.reset(); }

    void keepsADamagedFileAside()
    {
        const QByteArray header("[ConfigFileHeader]\nDeviceName=R47\n");
        for (const auto& [bytes, valid] : {std::pair(header + "\n[Input_IN1]\nGAIN=3\ntorn", true), // the header alone is good
                                           {header + "[Input_IN1\nGAIN=3\n", true},
                                           {header + QByteArray("\n[Input_IN1]\nGAIN=3\0\n", 22), true},
                                           {QByteArray(4096, '\0'), false}, // after a power cut
                                           {header + "x=" + QByteArray(8 * 1024 * 1024, 'x'), false}}) {
            cleanup();
            init();
            StoreFixture::put(mStore->path(u"w.1"_s), bytes);
            subject().workspaceNames();
            QCOMPARE(subject().isWorkspaceValid(u"w.1"_s), valid);
            StoreFixture::put(mStore->folder + u"/R47_Live_w.1.damaged-1"_s, "an earlier one");
            const QString aside = mStore->folder + u"/R47_Live_w.1.damaged-2"_s;
            expect(QByteArray("modifyFile //damaged file was copied to " + aside.toLocal8Bit()).constData());
            subject().modifyWorkspace(u"w.1"_s, 0);
            QCOMPARE(StoreFixture::content(aside), bytes);
            QVERIFY(subject().isCurrent(u"w.1"_s));
            QVERIFY(subject().isWorkspaceValid(u"w.1"_s));
            QCOMPARE(mStore->strip.gain, 0);
            mStore->strip.saveValue("GAIN", 4);
            subject().saveWorkspace();
            QCOMPARE(mStore->stored(u"w.1"_s), 4);
            QCOMPARE(StoreFixture::content(aside), bytes);
            QCOMPARE(subject().workspaceNames(), QStringList(u"w.1"_s));
        }
    }

    void touchesNothingWhenADamagedFileCannotBeKept()
    {
        mStore->make(u"good"_s, "2024-01-01 00:00:00", 1);
        StoreFixture::put(mStore->path(u"bad"_s), "torn");
        subject().modifyWorkspace(u"good"_s, 0);
        {
            expect("modifyFile //failed to replace damaged file");
            const FullDisk full;
            subject().modifyFile(mStore->path(u"bad"_s), 0);
        }
        {
            expect("modifyFile //failed to copy damaged file");
            const ReadOnlyFolder readOnly(mStore->folder);
            subject().modifyFile(mStore->path(u"bad"_s), 0);
        }
        QVERIFY(subject().isCurrent(u"good"_s));
        QCOMPARE(mStore->files(), QStringList({u"R47_Live_bad.ini"_s, u"R47_Live_good.ini"_s}));
        QCOMPARE(StoreFixture::content(mStore->path(u"bad"_s)), "torn");
    }

    void aPageDoesNotWriteIntoAnotherPagesWorkspace()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        subject().modifyWorkspace(u"w"_s, 0);
        expect("setWorkspaceInfo //failed to create folder");
        subject().setWorkspaceInfo(u"R47"_s, u"/proc/none/Prof"_s, u"R47_Prof_"_s);
        subject().createWorkspace(u"new"_s);
        subject().modifyWorkspace(u"new"_s, 0);
        QVERIFY(subject().isCurrent(u"new"_s)); // in a folder of its own, so that nothing of the page is lost
        mStore->strip.saveValue("GAIN", 9);
        QCOMPARE(mStore->stored(u"w"_s), 1);
    }

    void loadsOddButReadableFiles()
    {
        const QByteArray group("[Input_IN1]\nInput_IN1=true\n");
        for (const auto& [bytes, gain] : {std::pair(QByteArray(), 0),
                                          {"[ConfigFileHeader]\nDeviceName=R48\n" + group + "GAIN=5\n", 5},
                                          {group, 0},
                                          {group + "GAIN=loud\n", 0},
                                          {group + "GAIN=@Variant(\\x7f\\xff\\xff\\xff\\xff)\n", 0},
                                          {QByteArray("[Input_IN1]\r\nInput_IN1=true\r\nGAIN=6\r\n"), 6}}) {
            subject().close();
            StoreFixture::put(mStore->path(u"w"_s), bytes);
            if (bytes.contains("@Variant")) {
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Trying to construct an instance of an invalid type"_s));
            }
            QVERIFY(!subject().isWorkspaceValid(u"w"_s));
            const int loads = mStore->strip.loads;
            subject().modifyWorkspace(u"w"_s, 0);
            QCOMPARE(mStore->strip.loads, loads + 1);
            QVERIFY2(mStore->strip.gain == gain, bytes.constData());
            QCOMPARE(mStore->files(), QStringList(u"R47_Live_w.ini"_s));
        }
    }

    void skipsWhatIsNoFile()
    {
        QVERIFY(QDir().mkpath(mStore->path(u"folder"_s)));
        QVERIFY(subject().workspaceNames().isEmpty());
        QVERIFY(!subject().isWorkspaceValid(u"folder"_s));
        expect("modifyFile //file does not exist");
        subject().modifyWorkspace(u"folder"_s, 0);
        expect("createFile //failed to create file");
        subject().createWorkspace(u"folder"_s);
        QVERIFY(QFileInfo(mStore->path(u"folder"_s)).isDir());
    }

    void survivesAFullDiskInDirectMode()
    {
        for (const rlim_t room : {0, 400}) { // for a lock file; Qt's own writing cuts the workspace off then
            mStore->make(u"w"_s, "2024-01-01 00:00:00", 3);
            mStore->make(u"other"_s, "2024-01-02 00:00:00", 7);
            subject().modifyWorkspace(u"w"_s, 0);
            {
                expect("flush //failed to write file");
                const FullDisk full(room);
                mStore->strip.saveValue("GAIN", 4);
                QTest::qWait(400);
                subject().saveWorkspace(); // no second warning
                QVERIFY(subject().hasUnsavedChanges());
                QCOMPARE(subject().workspaceNames().size(), 2);
                subject().modifyWorkspace(u"other"_s, 0);
                QCOMPARE(mStore->strip.gain, 7);
                QVERIFY(subject().isWorkspaceValid(u"w"_s));
                QCOMPARE(mStore->stored(u"w"_s), 3);
                subject().modifyWorkspace(u"w"_s, 0);
                QCOMPARE(mStore->strip.gain, 4);
                subject().modifyWorkspace(u"other"_s, 0);
                QVERIFY(StoreFixture::content(mStore->path(u"w"_s)).contains("nnn"));
            }
            // Into the private copy, although its file could not take it a moment ago, and there no further.
            subject().modifyWorkspace(u"w"_s, 1);
            QCOMPARE(mStore->strip.gain, 4);
            QCOMPARE(mStore->stored(u"w"_s), 4);
            mStore->strip.saveValue("GAIN", 5);
            subject().modifyWorkspace(u"other"_s, 0);
            {
                expect("flush //failed to write file");
                const FullDisk full(room);
                mStore->strip.saveValue("GAIN", 8);
                subject().close();
            }
            QTRY_COMPARE_WITH_TIMEOUT(mStore->stored(u"other"_s), 8, 7000); // although nothing is open any more
            QCOMPARE(mStore->stored(u"w"_s), 4);
            QCOMPARE(mStore->files(), QStringList({u"R47_Live_other.ini"_s, u"R47_Live_w.ini"_s}));
        }
    }

    void survivesAFullDiskInPrivateMode()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        subject().modifyWorkspace(u"w"_s, 0);
        {
            expect("modifyFilePreprocessing //failed to copy file to temp folder");
            const FullDisk full;
            subject().modifyWorkspacePreprocessing(1);
        }
        mStore->strip.saveValue("GAIN", 2);
        subject().saveWorkspace();
        QCOMPARE(mStore->stored(u"w"_s), 2);

        subject().modifyWorkspace(u"w"_s, 1);
        mStore->strip.saveValue("GAIN", 3);
        {
            expect("flush //failed to write file");
            expect("saveFile //failed to copy file from temp folder");
            expect("modifyFilePreprocessing //failed to copy file from temp folder");
            const FullDisk full;
            subject().saveWorkspace();
            subject().modifyWorkspacePreprocessing(0);
        }
        QCOMPARE(mStore->stored(u"w"_s), 2);
        subject().saveWorkspace();
        QCOMPARE(mStore->stored(u"w"_s), 3);
        {
            expect("modifyFile //failed to copy file to temp folder");
            const FullDisk full;
            subject().modifyWorkspace(u"w"_s, 1);
        }
        QVERIFY(!subject().isOpen());
        mStore->strip.saveValue("GAIN", 4);
        QCOMPARE(mStore->stored(u"w"_s), 3);
    }

    void keepsOldFilesOnAFullDisk()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        mStore->make(u"old"_s, "2023-01-01 00:00:00", 7);
        const QByteArray before = StoreFixture::content(mStore->path(u"old"_s));
        subject().modifyWorkspace(u"w"_s, 1);
        {
            expect("createFile //failed to create file");
            expect("createFile //failed to create file");
            expect("fileSaveAs //failed to copy file to target folder");
            const FullDisk full;
            subject().createWorkspace(u"old"_s);
            subject().createWorkspace(u"new"_s);
            subject().workspaceSaveAs(u"old"_s);
        }
        QCOMPARE(StoreFixture::content(mStore->path(u"old"_s)), before);
        QCOMPARE(mStore->files(), QStringList({u"R47_Live_old.ini"_s, u"R47_Live_w.ini"_s}));
    }

    // What another program does to the file of the open workspace loses none of its values.
    void othersAtTheOpenFile()
    {
        for (const int mode : {0, 1}) {
            mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
            subject().modifyWorkspace(u"w"_s, mode);
            const QString path = mode == 0 ? mStore->path(u"w"_s) : mStore->temp(u"w"_s);
            int gain = 10;
            for (const QByteArray& foreign : {QByteArray(), QByteArray("20;1\n"), QByteArray("[Elsewhere]\nx=1\n")}) {
                QVERIFY(QFile::remove(path));
                if (!foreign.isEmpty()) {
                    StoreFixture::put(path, foreign);
                    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"flush //foreign file was copied to .*damaged"_s));
                }
                mStore->strip.saveValue("GAIN", ++gain);
                subject().saveWorkspace();
                QCOMPARE(mStore->stored(u"w"_s), gain);
                const QByteArray content = StoreFixture::content(mStore->path(u"w"_s));
                QVERIFY(content.contains("nnn") && content.contains("DeviceName=R47"));
            }
            QTest::qWait(20); // files are told apart by their time
            StoreFixture::put(
                path, QByteArray(StoreFixture::content(path)).replace("GAIN=13", "GAIN=14")); // an editor that knows what it does
            mStore->strip.saveValue("Other", 1);
            subject().saveWorkspace();
            QCOMPARE(mStore->stored(u"w"_s), 14);
            const QDir folder(QFileInfo(path).path());
            QCOMPARE(StoreFixture::content(folder.filePath(folder.entryList({u"*.damaged-1"_s}).value(0))), "20;1\n");
            subject().close();
        }
    }

    void survivesAReadOnlyFolder()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        subject().modifyWorkspace(u"w"_s, 0);
        const QByteArray before = StoreFixture::content(mStore->path(u"w"_s));
        {
            expect("removeFile //failed to remove file");
            expect("createFile //failed to create file");
            const ReadOnlyFolder readOnly(mStore->folder);
            subject().removeWorkspace(u"w"_s);
            subject().createWorkspace(u"new"_s);
        }
        QCOMPARE(StoreFixture::content(mStore->path(u"w"_s)), before);
        QCOMPARE(mStore->files(), QStringList(u"R47_Live_w.ini"_s));
    }

    void droppedEditsDoNotComeBack()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        subject().modifyWorkspace(u"w"_s, 1);
        mStore->strip.saveValue("GAIN", 9);
        {
            expect("flush //failed to write file");
            const FullDisk full;
            subject().close();
        }
        subject().modifyWorkspace(u"w"_s, 1);
        QCOMPARE(mStore->strip.gain, 1);
    }

    void doesNotWaitForADeadRunsLock()
    {
        for (const int mode : {0, 1}) {
            mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
            QFile lock((mode == 0 ? mStore->path(u"w"_s) : mStore->temp(u"w"_s)) + u".lock"_s);
            QVERIFY(lock.open(QIODevice::WriteOnly));
            QVERIFY(lock.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
            lock.close();
            subject().modifyWorkspace(u"w"_s, mode);
            mStore->strip.saveValue("GAIN", 5);
            subject().saveWorkspace(); // waited for ever
            QCOMPARE(mStore->stored(u"w"_s), 5);
        }
        subject().close();
        QVERIFY(QDir().mkpath(mStore->path(u"w"_s) + u".lock"_s));
        expect("modifyFile //file is locked");
        subject().modifyWorkspace(u"w"_s, 0);
        QVERIFY(!subject().isOpen());
    }

    void doesNotWriteThroughALinkInTheTempFolder()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        const QString victim = mStore->dir.filePath(u"victim"_s);
        StoreFixture::put(victim, "precious");
        QFile::remove(mStore->temp(u"w"_s));
        QVERIFY(QFile::link(victim, mStore->temp(u"w"_s)));
        subject().modifyWorkspace(u"w"_s, 1);
        mStore->strip.saveValue("GAIN", 2);
        subject().saveWorkspace();
        QCOMPARE(StoreFixture::content(victim), "precious");
        QCOMPARE(mStore->stored(u"w"_s), 2);
    }

private:
    WorkspaceSubject& subject() { return StoreFixture::subject(); }

    std::unique_ptr<StoreFixture> mStore;
};

QTEST_GUILESS_MAIN(TestHostile)
#include "tst_hostile.moc"
