// The script of the virtual device: what its commands send, what they tell of what came, and that they are checked.

#include "tests/virtual/HidHandle.h"
#include "tests/virtual/RunningR47.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <thread>

class tst_VirtualControl : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void floodArrivesWhole();
    void silenceAndDelay();
    void brokenReports();
    void badWritesAreCounted();
    void record();
    void waitAndCount();
    void stampsLieBetweenWriteAndAnswer();
    void commandsAreChecked_data();
    void commandsAreChecked();
    void quitLeavesNothing();
};

void tst_VirtualControl::floodArrivesWhole()
{
    RunningR47 device;
    const Handle handle = openR47();
    constexpr int kCount = 20000;
    std::thread script([&] { device.ask(QString("flood %1 0").arg(kCount)); });
    int next = 0;
    while (next < kCount && valueOf(read(handle)) == -next)
        ++next;
    script.join();
    QCOMPARE(next, kCount);
    QElapsedTimer timer;
    timer.start();
    device.ask("flood 200 1000");
    QVERIFY2(timer.elapsed() >= 190 && timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
}

void tst_VirtualControl::silenceAndDelay()
{
    RunningR47 device({"--rate", "100"});
    const Handle handle = openR47();
    device.ask("silence on");
    write(handle, 0x1101, 1);
    device.ask("wait Auth 1");
    QVERIFY(read(handle, 50).isEmpty());
    device.ask("frame 2105 1"); // what a script asks for is sent
    QCOMPARE(codeOf(read(handle)), 0x2105);
    device.ask("silence off");
    device.ask("rate 0");
    device.ask("slow 150");
    QElapsedTimer timer;
    timer.start();
    write(handle, 0x1101, 1);
    QCOMPARE(nextOf(handle, 0x1101), 2);
    QVERIFY2(timer.elapsed() >= 140, qPrintable(QString::number(timer.elapsed())));
}

void tst_VirtualControl::brokenReports()
{
    RunningR47 device;
    const Handle handle = openR47();
    device.ask("short 20");
    for (int i = 0; i < 20; ++i) {
        const QByteArray report = read(handle);
        QVERIFY(!report.isEmpty() && report.size() < 16);
    }
    device.ask("garbage 50");
    QSet<qsizetype> lengths;
    for (int i = 0; i < 50; ++i)
        lengths << read(handle).size();
    QVERIFY(lengths.size() > 5);
    QVERIFY(!lengths.contains(0));
}

void tst_VirtualControl::badWritesAreCounted()
{
    RunningR47 device;
    const Handle handle = openR47();
    QByteArray bad = outputReport(0x2105, 1);
    bad[15] = 0x78;
    hid_write(handle.get(), reinterpret_cast<const unsigned char*>(bad.constData()), 16);
    hid_write(handle.get(), reinterpret_cast<const unsigned char*>(bad.constData()), 5);
    hid_write(handle.get(), reinterpret_cast<const unsigned char*>(QByteArray(300, 'x').constData()), 300);
    write(handle, 0x2205, 1);
    device.ask("wait 2205");
    const QJsonObject state = QJsonDocument::fromJson(device.ask("state")).object();
    QCOMPARE(state["bad"].toInt(), 3);
    QCOMPARE(state["in"].toInt(), 1);
    QVERIFY(!state["parameters"].toObject().contains("2105"));
}

void tst_VirtualControl::record()
{
    RunningR47 device;
    const QString file = device.path("a record");
    QVERIFY(!device.tell("record /nonexistent/x"));
    device.ask("record " + file);
    const Handle handle = openR47();
    write(handle, 0x2105, 1);
    write(handle, 0x3109, -5);
    write(handle, 0x7777, 0);
    device.ask("wait 7777");
    device.ask("panel Input_AUX GAIN -6");
    device.ask("record flush");
    QFile record(file);
    QVERIFY(record.open(QIODevice::ReadOnly));
    QList<QByteArray> lines = record.readAll().split('\n');
    QCOMPARE(lines.takeLast(), QByteArray());
    const QList<QByteArray> expected = {"in 2105 1 Input_IN1.MUTE", "in 3109 -5 Mixer_IN12.MixA_GainMLCL", "in 7777 0 -",
                                        "out 2304 69 Input_AUX.GAIN"};
    QCOMPARE(lines.size(), expected.size());
    qint64 last = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto blank = lines[i].indexOf(' ');
        const qint64 us = lines[i].first(blank).toLongLong();
        QVERIFY(us >= last && us <= monotonicNs() / 1000 && us > monotonicNs() / 1000 - 60'000'000);
        last = us;
        QCOMPARE(lines[i].mid(blank + 1), expected[i]);
    }
    device.ask("panel Input_AUX MUTE 1");
    device.ask("record off");
    device.ask("panel Input_AUX MUTE 0");
    QVERIFY(record.readAll().trimmed().endsWith("out 2305 1 Input_AUX.MUTE"));
}

void tst_VirtualControl::waitAndCount()
{
    RunningR47 device;
    const Handle handle = openR47();
    QVERIFY(!device.tell("wait 2105 any 30"));
    write(handle, 0x2105, 0);
    write(handle, 0x2105, 1);
    device.ask("wait 2105 1");
    device.ask("wait Input_IN1.MUTE");
    QCOMPARE(device.ask("count 2105"), QByteArray("2"));
    QVERIFY(!device.tell("wait 2105 0 30")); // what came before and is no longer so does not count
    device.ask("clear");
    QCOMPARE(device.ask("count 2105"), QByteArray("0"));
    QVERIFY(!device.tell("wait 2105 1 30"));
    std::thread late([&] { write(handle, 0x2105, 1); });
    device.ask("wait 2105 1");
    late.join();
}

void tst_VirtualControl::stampsLieBetweenWriteAndAnswer()
{
    RunningR47 device;
    const Handle handle = openR47();
    const qint64 before = monotonicNs();
    write(handle, 0x2104, 7);
    write(handle, 0x2104, 8);
    device.ask("wait 2104 8");
    const QJsonArray stamps = QJsonDocument::fromJson(device.ask("stamps 2104")).array();
    QCOMPARE(stamps.size(), 2);
    QCOMPARE(stamps[0][1].toInt(), 7);
    QVERIFY(stamps[0][0].toInteger() > before);
    QVERIFY(stamps[1][0].toInteger() >= stamps[0][0].toInteger());
    QVERIFY(stamps[1][0].toInteger() < monotonicNs());
}

void tst_VirtualControl::commandsAreChecked_data()
{
    QTest::addColumn<QString>("line");
    for (const char* line : {"", "nothing", "mode", "mode 4", "mode 2 3", "plug 3", "frame 2105", "frame 12345 1", "frame 2105 1.5",
                             "level IN1 loud", "rate -1", "rate nan", "stall maybe", "flood 0 1", "garbage -1", "wait 2105 1 -1",
                             "dfu fail 101", "dfu", "driver rate x"})
        QTest::newRow(line) << line;
}

void tst_VirtualControl::commandsAreChecked()
{
    static RunningR47 device;
    QFETCH(QString, line);
    QCOMPARE(int(device.tell(line).status), int(r47::Reply::Status::Usage));
}

void tst_VirtualControl::quitLeavesNothing()
{
    RunningR47 device;
    const Handle handle = openR47();
    device.ask("quit");
    QCOMPARE(device.waitForEnd(), 0);
    for (const char* name : {"hid", "driver", "ctl"})
        QVERIFY(!QFile::exists(device.path(name)));
    QVERIFY(read(handle, 0).isEmpty());
    QCOMPARE(write(handle, 0x2105, 1), -1);
}

QTEST_GUILESS_MAIN(tst_VirtualControl)
#include "tst_control.moc"
