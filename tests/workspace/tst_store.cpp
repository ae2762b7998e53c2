#include "tests/workspace/StoreFixture.h"
#include "workspace/WorkspaceChoice.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class TestStore : public QObject
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

    void doesNothingWithoutFolderOrStore()
    {
        subject().setWorkspaceInfo(u"R47"_s, {}, u"R47_Live_"_s);
        for (const char* warning : {"createWorkspace //workspace info is empty", "modifyWorkspace //workspace info is empty",
                                    "createFile //file is empty", "removeFile //file is empty"}) {
            expect(warning);
        }
        subject().createWorkspace(u"a"_s);
        subject().modifyWorkspace(u"a"_s, 0);
        subject().createFile({}, u"R47"_s);
        subject().removeFile({});
        subject().saveFile();
        subject().clearFile();
        subject().modifyFilePreprocessing(1);
        QVERIFY(subject().workspaceNames().isEmpty());
        mStore->strip.saveValue("GAIN", 1);
        QVERIFY(!mStore->strip.loadValue("GAIN").isValid());
    }

    void refusesNamesThatLeaveTheFolder()
    {
        mStore->make(u"open"_s, "2024-01-01 00:00:00", 1);
        subject().modifyWorkspace(u"open"_s, 0);
        for (const QString& name : {u"../x"_s, u"a/b"_s, u"a\\b"_s, u"a"_s + QChar(0), u"."_s, QString(), QString(129, u'n')}) {
            for (const char* operation :
                 {"createWorkspace", "removeWorkspace", "workspaceSaveAs", "modifyWorkspace", "isWorkspaceValid"}) {
                QTest::ignoreMessage(QtWarningMsg, QByteArray("WorkspaceSubject::") + operation + " //invalid name");
            }
            subject().createWorkspace(name);
            subject().removeWorkspace(name);
            subject().workspaceSaveAs(name);
            subject().modifyWorkspace(name, 0);
            QVERIFY(!subject().isWorkspaceValid(name));
            QVERIFY(subject().isCurrent(u"open"_s));
            QCOMPARE(QSettings().value(subject().rememberKey()).toString(), u"open"_s);
            QCOMPARE(mStore->files(), QStringList(u"R47_Live_open.ini"_s));
        }
    }

    void loadsBetweenTwoMarks()
    {
        subject().createWorkspace(u"new"_s);
        QStringList events;
        QObject scope;
        connect(&subject(), &WorkspaceSubject::attributeChanged, &scope,
                [&](const QString& object, const QString& attribute, const QString& value) {
                    events << object + u' ' + attribute + u' ' + value + u' ' + QString::number(mStore->strip.loads);
                });
        subject().modifyWorkspace(u"new"_s, 1);
        QCOMPARE(events, QStringList({u"Workspace ModifyFile "_s + mStore->temp(u"new"_s) + u" 0"_s,
                                      u"Workspace LoadSettings 1 0"_s, u"Workspace LoadSettings 0 1"_s}));
        QCOMPARE(mStore->strip.gain, 0);
        QVERIFY(subject().isWorkspaceValid(u"new"_s));

        QTest::ignoreMessage(QtWarningMsg, "WorkspaceSubject::modifyFile //file does not exist");
        subject().modifyWorkspace(u"gone"_s, 1);
        QCOMPARE(events.size(), 3);
        QVERIFY(subject().isCurrent(u"new"_s));
        QCOMPARE(QSettings().value("R47/R47_Live_Workspace").toString(), u"gone"_s);
    }

    void savesInBothModes()
    {
        for (const int mode : {0, 1}) {
            mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
            StoreFixture::put(mStore->temp(u"w"_s), "a stale copy");
            subject().modifyWorkspace(u"w"_s, mode);
            QCOMPARE(mStore->strip.gain, 1);
            mStore->strip.saveValue("GAIN", 2);
            subject().saveWorkspace();
            QCOMPARE(mStore->stored(u"w"_s), 2);
            mStore->strip.saveValue("GAIN", 3);
            subject().close();
            QCOMPARE(mStore->stored(u"w"_s), mode == 0 ? 3 : 2);
            QCOMPARE(QFile::exists(mStore->temp(u"w"_s)), mode == 0);
            QFile::remove(mStore->temp(u"w"_s));
            QCOMPARE(mStore->files(), QStringList(u"R47_Live_w.ini"_s));
        }
    }

    void switchingDropsThePrivateCopy()
    {
        mStore->make(u"a"_s, "2024-01-01 00:00:00", 1);
        mStore->make(u"b"_s, "2024-01-02 00:00:00", 2);
        subject().modifyWorkspace(u"a"_s, 1);
        mStore->strip.saveValue("GAIN", 9);
        subject().modifyWorkspace(u"b"_s, 1);
        QCOMPARE(mStore->strip.gain, 2);
        QVERIFY(!QFile::exists(mStore->temp(u"a"_s)));
        subject().modifyWorkspace(u"a"_s, 0);
        QCOMPARE(mStore->strip.gain, 1);
        mStore->strip.saveValue("GAIN", 5);
        subject().modifyWorkspace(u"b"_s, 0);
        QCOMPARE(mStore->stored(u"a"_s), 5);
    }

    void changesModeWithoutALoad()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        subject().modifyWorkspace(u"w"_s, 0);
        QSignalSpy events(&subject(), &WorkspaceSubject::attributeChanged);
        mStore->strip.saveValue("GAIN", 2);
        subject().modifyWorkspacePreprocessing(1);
        QCOMPARE(mStore->stored(u"w"_s), 2);
        mStore->strip.saveValue("GAIN", 3);
        QCOMPARE(mStore->strip.loadValue("GAIN").toInt(), 3);
        subject().modifyWorkspacePreprocessing(1); // no change
        QCOMPARE(mStore->stored(u"w"_s), 2);
        subject().modifyWorkspacePreprocessing(0);
        QCOMPARE(mStore->stored(u"w"_s), 3);
        QVERIFY(!QFile::exists(mStore->temp(u"w"_s)));
        mStore->strip.saveValue("GAIN", 4);
        subject().close();
        QCOMPARE(mStore->stored(u"w"_s), 4);
        QCOMPARE(events.size(), 0);
        QCOMPARE(mStore->strip.loads, 1);
    }

    void savesAsUnderANewDate()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        mStore->make(u"taken"_s, "2023-01-01 00:00:00", 7);
        subject().fileSaveAs(mStore->path(u"nothing is open"_s));
        subject().modifyWorkspace(u"w"_s, 1);
        mStore->strip.saveValue("GAIN", 2);
        subject().workspaceSaveAs(u"copy"_s);
        subject().workspaceSaveAs(u"taken"_s);
        QCOMPARE(mStore->stored(u"copy"_s), 2);
        QCOMPARE(mStore->stored(u"taken"_s), 2);
        QCOMPARE(mStore->stored(u"w"_s), 1);
        QVERIFY(subject().isCurrent(u"w"_s));
        QVERIFY(subject().isWorkspaceValid(u"copy"_s));
        QCOMPARE(subject().workspaceNames(), QStringList({u"w"_s, u"copy"_s, u"taken"_s}));
        QTest::ignoreMessage(QtWarningMsg, "WorkspaceSubject::fileSaveAs //file is empty");
        subject().fileSaveAs({});
    }

    void saveAsOntoTheOpenFileIsASave()
    {
        for (const int mode : {0, 1}) {
            subject().close();
            mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
            subject().modifyWorkspace(u"w"_s, mode);
            mStore->strip.saveValue("GAIN", 2);
            subject().fileSaveAs(mStore->folder + u"/../Live/R47_Live_w.ini"_s);
            QCOMPARE(mStore->stored(u"w"_s), 2);
            QCOMPARE(mStore->strip.loadValue("GAIN").toInt(), 2);
            QVERIFY(StoreFixture::content(mStore->path(u"w"_s)).contains("CreateDate=2024-01-01 00:00:00"));
        }
    }

    void clearingLeavesTheHeader()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 7);
        subject().modifyWorkspace(u"w"_s, 1);
        subject().clearWorkspace();
        QCOMPARE(mStore->stored(u"w"_s), -1);
        QVERIFY(
            StoreFixture::content(mStore->path(u"w"_s)).contains("CreateDate=2024-01-01 00:00:00\nCreateUser=me\nDeviceName=R47"));
        subject().modifyWorkspace(u"w"_s, 1);
        QCOMPARE(mStore->strip.gain, 0);
    }

    void createsInPlaceOfTheOpenFile()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 7);
        subject().modifyWorkspace(u"w"_s, 0);
        mStore->strip.saveValue("GAIN", 8);
        subject().createWorkspace(u"w"_s);
        QVERIFY(!mStore->strip.loadValue("GAIN").isValid());
        QCOMPARE(mStore->stored(u"w"_s), -1);
        subject().removeWorkspace(u"w"_s);
        QVERIFY(!subject().isWorkspaceValid(u"w"_s));
    }

    void listsByDate()
    {
        mStore->make(u"late"_s, "2025-12-31 23:59:59", 1);
        mStore->make(u"b.same"_s, "2024-05-05 05:05:05", 1);
        mStore->make(u"early"_s, "2019-01-01 00:00:00", 1);
        mStore->make(u"a.same"_s, "2024-05-05 05:05:05", 1);
        mStore->make(u"no date"_s, "yesterday", 1);
        StoreFixture::put(mStore->folder + u"/R47_Mble_x.ini"_s, "");
        StoreFixture::put(mStore->folder + u"/R47_Live_.ini"_s, "");
        StoreFixture::put(mStore->folder + u"/R47_Live_x.damaged-1"_s, "");
        QCOMPARE(subject().workspaceNames(), QStringList({u"no date"_s, u"early"_s, u"a.same"_s, u"b.same"_s, u"late"_s}));
    }

    void choosesTheRememberedOne()
    {
        const QStringList both{u"a"_s, u"b"_s};
        for (const auto& [valid, remembered, opened] : {std::tuple{both, u"b"_s, u"b"_s},
                                                        {both, u"gone"_s, u"a"_s},
                                                        {both, u"foreign"_s, u"a"_s},
                                                        {QStringList{u"a"_s}, u"../x"_s, u"a"_s},
                                                        {QStringList(), u"foreign"_s, QString()}}) { // none is valid
            cleanup();
            init();
            StoreFixture::put(mStore->path(u"foreign"_s), "[ConfigFileHeader]\nCreateDate=2000-01-01 00:00:00\nDeviceName=R48\n");
            for (const QString& name : valid) {
                mStore->make(name, name == u"a"_s ? "2024-01-01 00:00:00" : "2024-01-02 00:00:00", 1);
            }
            if (remembered == u"foreign"_s) {
                QTest::ignoreMessage(QtWarningMsg, "workspaceToOpen //remembered file is not a workspace of this device");
            }
            QCOMPARE(quillon::workspaceToOpen(subject(), subject().workspaceNames(), remembered), opened);
        }
    }

    void whoLeftTheAudienceWritesNowhere()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        subject().modifyWorkspace(u"w"_s, 0);
        subject().clearObservers();
        mStore->strip.saveValue("GAIN", 9);
        subject().saveWorkspace();
        QCOMPARE(mStore->stored(u"w"_s), 1);
        subject().addObserver(&mStore->strip);
        mStore->strip.saveValue("GAIN", 9);
        subject().saveWorkspace();
        QCOMPARE(mStore->stored(u"w"_s), 9);
    }

    void namesNewOnes()
    {
        QCOMPARE(quillon::uniqueName(u"tour"_s, {u"Tour"_s}), u"tour"_s);
        QCOMPARE(quillon::uniqueName(u"tour"_s, {u"tour"_s}), QString());
        QStringList taken;
        for (int i = 0; i < 3; ++i) {
            const QString name = quillon::uniqueName({}, taken);
            QVERIFY(QDateTime::fromString(name, u"yyyy-MMdd-hhmm-ss"_s).isValid());
            QVERIFY(!taken.contains(name));
            taken << name;
        }
    }

    void aDragIsAFewWrites()
    {
        mStore->make(u"w"_s, "2024-01-01 00:00:00", 1);
        subject().modifyWorkspace(u"w"_s, 0);
        QList<int> seen;
        QElapsedTimer drag;
        drag.start();
        int step = 100;
        qint64 firstWrite = 0;
        while (drag.elapsed() < 2400) {
            mStore->strip.saveValue("GAIN", ++step);
            QTest::qWait(10);
            if (const int stored = mStore->stored(u"w"_s); seen.isEmpty() ? stored != 1 : stored != seen.last()) {
                seen << stored;
                firstWrite = firstWrite != 0 ? firstWrite : drag.elapsed();
            }
        }
        QVERIFY2(seen.size() == 1, qPrintable(QString::number(seen.size())));
        QVERIFY2(firstWrite >= 1900, qPrintable(QString::number(firstWrite)));
        QTRY_COMPARE_WITH_TIMEOUT(mStore->stored(u"w"_s), step, 2000);
    }

private:
    WorkspaceSubject& subject() { return StoreFixture::subject(); }

    std::unique_ptr<StoreFixture> mStore;
};

QTEST_GUILESS_MAIN(TestStore)
#include "tst_store.moc"
