// The program as a user starts it, against a device that is scripted; seen in the record of what reaches the device and in the
// files that stay behind.

#include "Stage.h"

#include <QDir>

class tst_program : public QObject
{
    Q_OBJECT
private slots:
    void onePageInOneBracket();
    void silentDeviceIsGreetedTenTimes();
    void frontPanelIsStoredNotSent();
    void pageFollowsTheUnit();
    void endsInEveryState_data();
    void endsInEveryState();
};

void tst_program::onePageInOneBracket()
{
    Stage stage;
    stage.mark();
    QVERIFY(stage.start());
    QVERIFY(stage.waitForPage());
    const QStringList first{"1101 1"};
    QCOMPARE(stage.sent(), first + livePage());
    // An answered hello is not repeated. Nothing tells of what does not come but the time in which it would have.
    stage.mark();
    QVERIFY(!stage.unit().tell("wait 1101 any 700"));
    QCOMPARE(stage.sent(), QStringList());
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles(), QStringList());
}

void tst_program::silentDeviceIsGreetedTenTimes()
{
    Stage stage;
    stage.unit().ask("silence on");
    stage.mark();
    QVERIFY(stage.start());
    // The eleventh belongs to the next attempt: page 3 stands for two seconds after the fifth.
    QVERIFY(eventually([&] { return stage.unit().ask("count 1101").toInt() == 11; }, 12000 * kPatience));
    const auto hellos = stage.sentAt();
    QCOMPARE(stage.sent(), QStringList(11, "1101 1"));
    for (int i = 1; i <= 10; ++i) {
        const double seconds = double(hellos[i].first - hellos[i - 1].first) / 1e6;
        const double late = seconds - (i < 10 ? 0.5 : 0.5 + 2.0);
        const double latest = (i < 10 ? 0.12 : 1.0) * kPatience; // the last one comes from a console that is built for it
        QVERIFY2(late > -0.12 * kPatience && late < latest, qPrintable(QString("%1: %2 s").arg(i).arg(seconds)));
    }
    stage.mark();
    stage.unit().ask("silence off");
    QVERIFY(stage.waitForPage());
    QCOMPARE(stage.sent(), QStringList{"1101 1"} + livePage());
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles(), QStringList());
}

void tst_program::frontPanelIsStoredNotSent()
{
    Stage stage;
    QVERIFY(stage.start());
    QVERIFY(stage.waitForPage());
    stage.mark();
    for (const char* turn : {"Input_IN1 MUTE 1", "Input_IN1 MIC MicHP", "Input_IN2 GAIN 41", "Input_IN2 48V 1", "Input_AUX GAIN -6",
                             "Input_BT GAIN -60", "Input_BT MUTE 1", "Input_OTGIN GAIN -12"})
        stage.unit().ask(QString("panel ") + turn);
    QVERIFY(eventually([&] { return stage.stored("Input_OTGIN/GAIN").toFloat() == -12.0f; }));
    QCOMPARE(stage.sent(), QStringList());
    QCOMPARE(stage.stored("Input_IN1/MUTE").toBool(), true);
    QCOMPARE(stage.stored("Input_IN1/MIC").toString(), QString("MicHP"));
    QCOMPARE(stage.stored("Input_IN2/GAIN").toFloat(), 41.0f);
    QCOMPARE(stage.stored("Input_IN2/48V").toBool(), true);
    // The last turn comes with the end itself.
    stage.unit().ask("panel Input_AUX MUTE 1");
    QVERIFY(stage.unit().tell("ping"));
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.stored("Input_AUX/GAIN").toFloat(), -6.0f);

    const bool lastTurnTaken = stage.stored("Input_AUX/MUTE").toBool();
    stage.mark();
    QVERIFY(stage.start());
    QVERIFY(stage.waitForPage());
    QCOMPARE(stage.sent(), QStringList{"1101 1"} + livePage({{"2105", 1},
                                                             {"2102", 3},
                                                             {"2204", 41},
                                                             {"2203", 1},
                                                             {"2304", 69},
                                                             {"2305", lastTurnTaken},
                                                             {"2504", 29},
                                                             {"2505", 1},
                                                             {"2704", 77}}));
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles(), QStringList());
}

void tst_program::pageFollowsTheUnit()
{
    const QStringList hello{"1101 1"};
    Stage stage;
    QVERIFY(stage.start());
    QVERIFY(stage.waitForPage());
    // The unit comes back as another: a new hello, another page.
    stage.mark();
    stage.unit().ask("mode 1");
    QVERIFY(stage.waitForPage());
    QCOMPARE(stage.sent(), hello + pageOf(1));
    QVERIFY(QDir(stage.folder("Workspace/R47/Mble")).exists());
    // It tells the mode without leaving: the page follows at once and is as it was left, also after reports to other pages.
    stage.unit().ask("panel Input_IN1 GAIN 77");
    for (const int mode : {3, 2, 1, 2}) {
        const QMap<QString, int> changed = mode == 1 ? QMap<QString, int>{{"2104", 77}} : QMap<QString, int>();
        const QStringList page = pageOf(mode, changed);
        stage.mark();
        stage.unit().ask(QString("frame 1101 %1").arg(mode));
        QVERIFY(stage.waitForPage());
        QCOMPARE(stage.sent(), page);
    }
    QVERIFY(QDir(stage.folder("Workspace/R47/Prof")).exists());
    // A mode that there is not changes nothing.
    stage.mark();
    stage.unit().ask("frame 1101 9");
    stage.unit().ask("frame 1101 -3");
    stage.unit().ask("panel Input_IN1 GAIN 33");
    QVERIFY(eventually([&] { return stage.stored("Input_IN1/GAIN").toFloat() == 33.0f; }));
    QCOMPARE(stage.sent(), QStringList());
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles(kDriverTrouble), QStringList());
}

void tst_program::endsInEveryState_data()
{
    QTest::addColumn<QStringList>("before"); // told to the unit before the start
    QTest::addColumn<QString>("sign");       // what the unit waits for, empty where nothing reaches it
    QTest::addColumn<QStringList>("then");
    const QString page = "wait 1120 0";
    const QString hello = "wait 1101";
    const QStringList load(6, "frame 1101 2");
    QTest::newRow("no device") << QStringList{"unplug"} << QString() << QStringList();
    QTest::newRow("two devices") << QStringList{"plug 2"} << QString() << QStringList();
    QTest::newRow("no HID") << QStringList{"hid off"} << QString() << QStringList();
    QTest::newRow("waiting for the hello") << QStringList{"silence on"} << hello << QStringList();
    QTest::newRow("stalled at the hello") << QStringList{"stall on"} << QString() << QStringList();
    QTest::newRow("under full meters") << QStringList{"rate 100"} << page << QStringList();
    QTest::newRow("silent") << QStringList{} << page << QStringList{"silence on"};
    QTest::newRow("stalled with much to say") << QStringList{} << page << QStringList{"stall on"} + load;
    QTest::newRow("loading") << QStringList{} << page << load;
    QTest::newRow("just unplugged") << QStringList{} << page << QStringList{"unplug"};
}

void tst_program::endsInEveryState()
{
    QFETCH(const QStringList, before);
    QFETCH(const QString, sign);
    QFETCH(const QStringList, then);
    Stage stage;
    for (const QString& line : before)
        stage.unit().ask(line);
    QVERIFY(stage.start());
    if (!sign.isEmpty())
        QVERIFY(stage.unit().tell(sign));
    for (const QString& line : then)
        stage.unit().ask(line);
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.troubles(kDriverTrouble), QStringList());
}

QTEST_GUILESS_MAIN(tst_program)
#include "tst_program.moc"
