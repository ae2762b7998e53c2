// The HID door from outside: a program linked against the drop-in, byte for byte, and a running r47d scripted beside it.

#include "tests/virtual/HidHandle.h"
#include "tests/virtual/RunningR47.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <thread>

class tst_VirtualHid : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void noDevice();
    void enumeration();
    void helloAndLayout();
    void parametersAreKept();
    void metersFollowWhatIsWritten();
    void handlesShareTheDevice();
    void parametersSurviveASlowReader();
    void unplugEndsABlockedRead();
    void modeComesBackAfterAWhile();
    void updateModeHidesHid();
    void stallBlocksWrites();
};

void tst_VirtualHid::noDevice()
{
    qputenv("R47_DIR", "/nonexistent");
    QVERIFY(!openR47());
    QVERIFY(!hid_enumerate(0, 0));
    QVERIFY(hid_error(nullptr));
    qputenv("R47_DIR", QByteArray(200, 'x')); // longer than any socket's path
    QVERIFY(!openR47());
    QVERIFY(r47::ControlClient().command("ping").status == r47::Reply::Status::NoDevice);
}

void tst_VirtualHid::enumeration()
{
    RunningR47 device;
    hid_device_info* found = hid_enumerate(0x152A, 0);
    QVERIFY(found);
    QCOMPARE(found->product_id, 0x875C);
    QVERIFY(Handle(hid_open_path(found->path)));
    QVERIFY(Handle(hid_open(0x152A, 0x875C, found->serial_number)));
    hid_free_enumeration(found);
    QVERIFY(!hid_enumerate(0x152A, 0x875D));
    QVERIFY(!Handle(hid_open(0x152A, 0x875D, nullptr)));
    QVERIFY(!Handle(hid_open(0x152A, 0x875C, L"another")));
    device.ask("hid off");
    QVERIFY(!hid_enumerate(0, 0));
    device.ask("hid on");
    QVERIFY(openR47());
}

void tst_VirtualHid::helloAndLayout()
{
    RunningR47 device({"--rate", "0", "--mode", "3"});
    const Handle handle = openR47();
    QVERIFY(read(handle, 20).isEmpty()); // nothing before the hello
    QCOMPARE(write(handle, 0x1101, 1), 16);
    const QByteArray answer = read(handle);
    QCOMPARE(answer.size(), 16);
    QCOMPARE(answer.first(2), QByteArray::fromHex("2233"));
    QCOMPARE(answer.mid(5, 8), QByteArray::fromHex("1101000000030000"));
    QCOMPARE(answer.mid(13, 2), QByteArray::fromHex("6677"));
    QCOMPARE(nextOf(handle, 0x1201), 123);
    device.ask("frame 4408 -2");
    QByteArray negative = read(handle);
    while (codeOf(negative) != 0x4408 && !negative.isEmpty())
        negative = read(handle);
    QCOMPARE(negative.mid(5, 6), QByteArray::fromHex("4408fffffffe"));
}

void tst_VirtualHid::parametersAreKept()
{
    RunningR47 device;
    {
        const Handle handle = openR47();
        write(handle, 0x5102, -1);
        write(handle, 0x6404, 1);
        device.ask("wait 6404 1");
    }
    device.ask("panel Input_AUX GAIN -6");
    const QJsonObject state = QJsonDocument::fromJson(device.ask("state")).object();
    QCOMPARE(state["parameters"]["5102"].toInt(), -1);
    QCOMPARE(state["names"]["Output_HP.MUTERight"].toInt(), 1);
    QCOMPARE(state["names"]["Input_AUX.GAIN"].toInt(), 69);
    QCOMPARE(state["mode"].toInt(), 2);
    QCOMPARE(state["handles"].toInt(), 0);
}

void tst_VirtualHid::metersFollowWhatIsWritten()
{
    RunningR47 device({"--rate", "200"});
    for (const char* level : {"level IN1 -20", "level IN2 off", "level AUX -30"})
        device.ask(level);
    const Handle handle = openR47();
    write(handle, 0x1101, 1);
    QTRY_COMPARE(nextOf(handle, 0x2101), -200);
    write(handle, 0x2104, 20);
    QTRY_COMPARE(nextOf(handle, 0x2101), -260);
    write(handle, 0x3109, 33554432);
    QTRY_COMPARE(nextOf(handle, 0x6301), -260);
    write(handle, 0x5102, 9);
    write(handle, 0x5103, 16777216);
    device.ask("wait 5103");
    QCOMPARE(QJsonDocument::fromJson(device.ask("state"))["levels"]["LB12"][0].toDouble(), -36.0);
    device.ask("rate 0");
    QTRY_VERIFY(read(handle, 50).isEmpty());
}

void tst_VirtualHid::handlesShareTheDevice()
{
    RunningR47 device;
    const Handle reader = openR47();
    const Handle writer = openR47();
    write(writer, 0x1101, 1);
    QCOMPARE(nextOf(reader, 0x1101), 2);
    QCOMPARE(nextOf(reader, 0x6406), 1);
    QCOMPARE(QJsonDocument::fromJson(device.ask("state"))["readers"].toInt(), 1);
    for (int value = 1; value <= 100; ++value)
        device.ask(QString("frame 2104 %1").arg(value));
    for (int value = 1; value <= 100; ++value)
        QCOMPARE(valueOf(read(reader)), value);
    // A writer that begins to read finds the last reports, and is a reader from then on.
    const qint32 first = valueOf(read(writer));
    QVERIFY2(first > 1 && first < 100, qPrintable(QString::number(first)));
    for (int value = first + 1; value <= 100; ++value)
        QCOMPARE(valueOf(read(writer)), value);
    device.ask("frame 2105 0");
    QCOMPARE(codeOf(read(writer)), 0x2105);
    QCOMPARE(codeOf(read(reader)), 0x2105);
}

void tst_VirtualHid::parametersSurviveASlowReader()
{
    RunningR47 device;
    const Handle handle = openR47();
    const auto dropped = [&] { return QJsonDocument::fromJson(device.ask("state"))["dropped"].toInt(); };
    write(handle, 0x1101, 1);
    QCOMPARE(nextOf(handle, 0x6406), 1);
    device.ask("rate 2000");
    QTRY_VERIFY(dropped() > 0);
    // This one lies amid levels, which are all replaced by later ones.
    device.ask("frame 2105 13");
    QTRY_VERIFY(dropped() > 5000);
    device.ask("rate 0");
    QCOMPARE(nextOf(handle, 0x2105), 13);
}

void tst_VirtualHid::unplugEndsABlockedRead()
{
    RunningR47 device;
    const Handle reader = openR47();
    const Handle writer = openR47();
    write(writer, 0x1101, 1);
    QCOMPARE(nextOf(reader, 0x6406), 1);
    std::atomic<int> result = 0;
    std::atomic<qint64> endedNs = 0;
    std::thread blocked([&] {
        unsigned char buffer[16];
        result = hid_read(reader.get(), buffer, sizeof buffer);
        endedNs = monotonicNs();
    });
    QTRY_COMPARE(QJsonDocument::fromJson(device.ask("state"))["readers"].toInt(), 1);
    const qint64 unpluggedNs = monotonicNs();
    device.ask("unplug");
    blocked.join();
    QCOMPARE(result.load(), -1);
    QVERIFY2(endedNs - unpluggedNs < 50'000'000, qPrintable(QString::number(endedNs - unpluggedNs)));
    QCOMPARE(write(writer, 0x2105, 1), -1);
    QVERIFY(!openR47());
    device.ask("plug");
    QVERIFY(openR47());
}

void tst_VirtualHid::modeComesBackAfterAWhile()
{
    RunningR47 device;
    const Handle handle = openR47();
    write(handle, 0x2104, 31);
    QElapsedTimer timer;
    timer.start();
    write(handle, 0x111D, 1);
    unsigned char buffer[16];
    QCOMPARE(hid_read(handle.get(), buffer, sizeof buffer), -1);
    QVERIFY(!openR47());
    Handle again;
    QTRY_VERIFY((again = openR47()));
    QVERIFY2(timer.elapsed() >= 290, qPrintable(QString::number(timer.elapsed())));
    write(again, 0x1101, 1);
    QCOMPARE(nextOf(again, 0x1101), 1);
    device.ask("mode 3"); // and by hand: back when the command is done
    const QJsonObject state = QJsonDocument::fromJson(device.ask("state")).object();
    QCOMPARE(state["mode"].toInt(), 3);
    QVERIFY(state["hid"].toBool());
    QCOMPARE(state["parameters"]["2104"].toInt(), 31);
}

void tst_VirtualHid::updateModeHidesHid()
{
    RunningR47 device;
    write(openR47(), 0x111F, 1);
    device.ask("wait 111F");
    QTRY_COMPARE(QJsonDocument::fromJson(device.ask("state"))["plugged"].toInt(), 1);
    QVERIFY(QJsonDocument::fromJson(device.ask("state"))["update"].toBool());
    QVERIFY(!openR47());
    device.ask("unplug");
    device.ask("plug");
    QVERIFY(openR47());
}

void tst_VirtualHid::stallBlocksWrites()
{
    RunningR47 device;
    const Handle handle = openR47();
    device.ask("stall on");
    // A few reports fit into the pipe, then the write waits; going on, or an unplug, ends that wait.
    std::atomic<int> written = 0;
    std::atomic<int> last = 0;
    std::thread writer([&] {
        for (int i = 0; i < 100 && (last = write(handle, 0x2104, i)) > 0; ++i)
            ++written;
    });
    QTRY_VERIFY(written > 0);
    QElapsedTimer timer;
    for (int before = -1; before != written; QTest::qWait(50))
        before = written;
    QVERIFY2(written < 100, qPrintable(QString::number(written)));
    device.ask("stall off");
    device.ask("wait 2104 99");
    writer.join();
    QCOMPARE(device.ask("count 2104"), QByteArray("100"));

    device.ask("stall on");
    timer.start();
    std::thread toUnplug([&] {
        while ((last = write(handle, 0x2104, 1)) > 0)
            continue;
    });
    device.ask("unplug");
    toUnplug.join();
    QCOMPARE(last.load(), -1);
    QVERIFY(timer.elapsed() < 4000);
    // Nobody goes on: the write gives up by itself.
    device.ask("plug");
    const Handle patient = openR47();
    timer.start();
    while (write(patient, 0x2104, 1) > 0)
        continue;
    QVERIFY2(timer.elapsed() > 4500 && timer.elapsed() < 7000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(tst_VirtualHid)
#include "tst_hid.moc"
