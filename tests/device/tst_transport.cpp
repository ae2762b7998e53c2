// The two threads of the link, and how they end: in order, in time, and without hurting a handle.

#include "FakeHid.h"
#include "device/DeviceR47.h"
#include "device/ExitFrame.h"
#include "device/USBHIDAPI.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>
#include <algorithm>
#include <ctime>
#include <sched.h>

using namespace Qt::StringLiterals;

namespace
{

USBHIDAPI& hid()
{
    return USBHIDAPI::instance();
}

QByteArray inputReport(int code, int value)
{
    const quillon::Report report = quillon::encodeInput({.code = code, .value = value});
    return {reinterpret_cast<const char*>(report.data()), static_cast<qsizetype>(report.size())};
}

/// The values of the written frames, in order.
QList<int> writtenValues()
{
    QList<int> values;
    for (const QByteArray& bytes : fakehid::written()) {
        const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.constData());
        const auto frame = quillon::decodeOutput({data, static_cast<std::size_t>(bytes.size())});
        values += frame ? frame->value : -999;
    }
    return values;
}

QList<int> counting(int from, int to)
{
    QList<int> values;
    for (int value = from; value <= to; ++value) {
        values += value;
    }
    return values;
}

void sendCounting(DeviceType1& device, int from, int to)
{
    for (int value = from; value <= to; ++value) {
        device.sendFrame({.code = 0x2104, .value = value});
    }
}

/// A connected device, with what it tells the GUI thread.
struct Connected {
    explicit Connected(const fakehid::Behaviour& behaviour = {})
    {
        fakehid::install(behaviour);
        QObject::connect(&device, &DeviceType1::newFrameReceived, &context, [this](const DeviceType1::FrameInfo& frame) {
            received += frame.value;
            lossesBefore += losses;
        });
        QObject::connect(&device, &DeviceBase::deviceDisconnected, &context, [this] { ++losses; });
        opened = hid().open(0x152A, 0x875C);
        device.startDevice();
    }

    QObject context; // of the GUI thread
    DeviceR47 device;
    QList<int> received;
    int losses = 0;
    int lossesBefore = 0; // a frame that arrived behind the loss
    bool opened = false;
};

/// Where a thread may run; 0 is the caller.
cpu_set_t coresOf(pid_t thread)
{
    cpu_set_t cores;
    CPU_ZERO(&cores);
    ::sched_getaffinity(thread, sizeof cores, &cores);
    return cores;
}

pid_t threadNamed(const QByteArray& name)
{
    for (const QString& id : QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile comm(u"/proc/self/task/%1/comm"_s.arg(id));
        if (comm.open(QIODevice::ReadOnly) && comm.readAll().trimmed() == name) {
            return id.toInt();
        }
    }
    return 0;
}

} // namespace

class TestTransport : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void openNeedsBothHandles();
    void framesKeepTheirOrder();
    void reportsKeepTheirOrderAndBadOnesAreDropped();
    void unplugIsToldOnceBehindAllReports();
    void failedWriteIsTold();
    void framesAfterALossAreLostQuietly();
    void stopWritesWhatWasQueued();
    void stoppedDeviceIsLeftBehind();
    void writerLeftBehindWritesNoMore();
    void stoppedDeviceThatIsUnplugged();
    void startsAgainAfterStop();
    void startsAgainAfterALoss();
    void leftoversBeforeAnEndAreDropped();
    void floodHasItsCore();
    void idleThreadsSleep();
    void libraryMayBeLeftFirst();
};

void TestTransport::init()
{
    QTest::failOnWarning(QRegularExpression(u"."_s));
}

void TestTransport::cleanup()
{
    hid().close();
    fakehid::unplug(); // ends what was left behind
    QTRY_COMPARE(fakehid::openHandles(), 0);
    QCOMPARE(fakehid::misuse(), QByteArray());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TestTransport::openNeedsBothHandles()
{
    fakehid::install({.opensAllowed = 1});
    QVERIFY(!hid().open(0x152A, 0x875C));
    QCOMPARE(fakehid::openHandles(), 0);
    fakehid::install();
    QVERIFY(!hid().open(0x152A, 0x0001));
    unsigned char byte = 0;
    QCOMPARE(hid().read(&byte, 1), -1);
    QCOMPARE(hid().write(&byte, 1), -1);
    QVERIFY(hid().open(0x152A, 0x875C));
    QVERIFY2(hid().open(0x152A, 0x875C), "a second open replaces the first");
    QCOMPARE(fakehid::openHandles(), 2);
}

void TestTransport::framesKeepTheirOrder()
{
    Connected link;
    QVERIFY(link.opened);
    // Bursts that meet the writer asleep, awake and in between.
    int sent = 0;
    for (int burst = 1; burst <= 300; ++burst) {
        sendCounting(link.device, sent + 1, sent + burst % 17);
        sent += burst % 17;
        if (burst % 50 == 0) {
            QTRY_COMPARE(fakehid::writtenCount(), sent);
        }
    }
    link.device.stopDevice();
    QCOMPARE(writtenValues(), counting(1, sent));
}

void TestTransport::reportsKeepTheirOrderAndBadOnesAreDropped()
{
    Connected link;
    for (int value = 1; value <= 200; ++value) {
        QByteArray bad = inputReport(0x2101, -1);
        bad[value % 2 ? 13 : 14] = 0;
        fakehid::report(bad);
        fakehid::report(inputReport(0, -1));
        fakehid::report(inputReport(0x2101, value));
        fakehid::report(inputReport(0x2101, -1).first(15));
    }
    QTRY_COMPARE(link.received.size(), 200);
    QCOMPARE(link.received, counting(1, 200));
    QCOMPARE(link.losses, 0);
}

void TestTransport::unplugIsToldOnceBehindAllReports()
{
    Connected link;
    for (int value = 1; value <= 100; ++value) {
        fakehid::report(inputReport(0x2101, value));
    }
    fakehid::unplug();
    QTRY_COMPARE(link.losses, 1);
    QCOMPARE(link.received, counting(1, 100));
    QCOMPARE(link.lossesBefore, 0);
    link.device.stopDevice();
    QCoreApplication::processEvents();
    QCOMPARE(link.losses, 1);
}

void TestTransport::failedWriteIsTold()
{
    fakehid::install({.failWriteAfter = 0});
    QVERIFY(hid().open(0x152A, 0x875C));
    Sender sender;
    int failures = 0;
    connect(&sender, &Sender::sendFailed, this, [&failures] { ++failures; }); // on this thread
    sender.enqueue("x");
    sender.begin();
    QTRY_COMPARE(failures, 1);
    QVERIFY(sender.waitStopped());
}

void TestTransport::framesAfterALossAreLostQuietly()
{
    Connected link;
    sendCounting(link.device, 1, 5000);
    fakehid::unplug();
    sendCounting(link.device, 1, 5000);
    QTRY_COMPARE(link.losses, 1);
    const qint64 written = fakehid::writtenCount();
    sendCounting(link.device, 1, 1000);
    link.device.stopDevice();
    QCOMPARE(fakehid::writtenCount(), written);
}

void TestTransport::stopWritesWhatWasQueued()
{
    Connected link({.writeMs = 40});
    sendCounting(link.device, 1, 50); // takes longer than a device may take nothing
    link.device.stopDevice();
    QCOMPARE(writtenValues(), counting(1, 50));
    QVERIFY(!fakehid::written().contains(ExitFrame.toUtf8()));
    QVERIFY2(fakehid::openHandles() == 2, "stopping leaves the connection open");
    // What comes behind the end waits, and another stop changes nothing.
    sendCounting(link.device, 51, 60);
    link.device.stopDevice();
    QCOMPARE(fakehid::writtenCount(), 50);
}

void TestTransport::stoppedDeviceIsLeftBehind()
{
    QElapsedTimer timer;
    {
        Connected link({.blockWriteAfter = 2, .blockMs = 3000});
        sendCounting(link.device, 1, 5);
        QTRY_COMPARE(fakehid::writtenCount(), 2);
        timer.start();
        link.device.sendFrame({.code = 1, .value = 6});
        QVERIFY2(timer.elapsed() < 100, "queueing never waits");
        timer.restart();
    }
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(fakehid::openHandles(), 1); // the blocked call still has its own
    QTRY_COMPARE_WITH_TIMEOUT(fakehid::openHandles(), 0, 8000);
    QCOMPARE(writtenValues(), counting(1, 2));
}

void TestTransport::writerLeftBehindWritesNoMore()
{
    Connected link({.writeMs = 1500});
    sendCounting(link.device, 1, 3);
    QTest::qWait(20);
    link.device.stopDevice();
    QCOMPARE(fakehid::writtenCount(), 0);
    fakehid::hurry();
    link.device.startDevice();
    sendCounting(link.device, 4, 5);
    // The write under way ends; then only the new run speaks, or old settings would undo new ones.
    QTRY_COMPARE(fakehid::writtenCount(), 3);
    link.device.stopDevice();
    QCOMPARE(writtenValues(), QList<int>({1, 4, 5}));
}

void TestTransport::stoppedDeviceThatIsUnplugged()
{
    Connected link({.blockWriteAfter = 0});
    sendCounting(link.device, 1, 5);
    QTest::qWait(20);
    link.device.stopDevice(); // leaves the writer behind
    QVERIFY(hid().open(0x152A, 0x875C));
    link.device.startDevice();
    fakehid::unplug();
    QTRY_COMPARE(link.losses, 1);
    QCOMPARE(writtenValues(), QList<int>());
}

void TestTransport::startsAgainAfterStop()
{
    Connected link;
    int sent = 0;
    for (int run = 0; run < 20; ++run) {
        sendCounting(link.device, sent + 1, sent + 3);
        link.device.stopDevice();
        sendCounting(link.device, sent + 4, sent + 5); // for the next run
        sent += 5;
        link.device.startDevice();
        link.device.startDevice(); // no effect
        fakehid::report(inputReport(0x2101, run));
        QTRY_COMPARE(link.received.size(), run + 1);
    }
    link.device.stopDevice();
    QCOMPARE(writtenValues(), counting(1, sent));
    QCOMPARE(link.losses, 0);
}

void TestTransport::startsAgainAfterALoss()
{
    Connected link({.failWriteAfter = 1});
    sendCounting(link.device, 1, 5);
    QTRY_COMPARE(link.losses, 1);
    QCOMPARE(writtenValues(), counting(1, 1));
    QCOMPARE(fakehid::openHandles(), 0);
    fakehid::install();
    QVERIFY(hid().open(0x152A, 0x875C));
    link.device.startDevice();
    sendCounting(link.device, 6, 9);
    QTRY_COMPARE(fakehid::writtenCount(), 4);
    QCOMPARE(writtenValues(), counting(6, 9)); // nothing of the run before
    fakehid::unplug();
    QTRY_COMPARE(link.losses, 2);
    link.device.startDevice(); // without a connection
    QTRY_COMPARE(link.losses, 3);
}

void TestTransport::leftoversBeforeAnEndAreDropped()
{
    // A stop that meets a writer which is just failing leaves its end in the queue.
    fakehid::install();
    QVERIFY(hid().open(0x152A, 0x875C));
    Sender sender;
    sender.enqueue("old");
    sender.enqueue(ExitFrame.toUtf8());
    sender.enqueue("new");
    sender.begin();
    sender.requestStop();
    QVERIFY(sender.waitStopped());
    QCOMPARE(fakehid::written(), QList<QByteArray>{"new"});
}

/// While a workspace is loaded the writer keeps off the loader's core, if there is another one.
void TestTransport::floodHasItsCore()
{
    Connected link;
    sendCounting(link.device, 1, 1);
    QTRY_COMPARE(fakehid::writtenCount(), 1);
    const cpu_set_t own = coresOf(0);
    const pid_t writer = threadNamed("Sender");
    QVERIFY(writer != 0);
    link.device.in_Others_attributeChanged(u"Workspace"_s, u"LoadSettings"_s, u"1"_s);
    const cpu_set_t during = coresOf(writer);
    sendCounting(link.device, 2, 500);
    QTRY_COMPARE(fakehid::writtenCount(), 501); // with the frame that tells of the load
    sendCounting(link.device, 501, 900);
    link.device.in_Others_attributeChanged(u"Workspace"_s, u"LoadSettings"_s, u"0"_s);
    const cpu_set_t after = coresOf(writer);
    link.device.stopDevice();
    QCOMPARE(CPU_COUNT(&during), std::max(1, CPU_COUNT(&own) - 1));
    QVERIFY(CPU_EQUAL(&after, &own));
    QCOMPARE(writtenValues(), QList<int>({1, 1}) + counting(2, 900) + QList<int>({0}));
}

void TestTransport::idleThreadsSleep()
{
    Connected link;
    link.device.expectFlood(true); // of which nothing comes
    sendCounting(link.device, 1, 1);
    QTest::qWait(100);
    const std::clock_t before = std::clock();
    QTest::qWait(1000);
    const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    QVERIFY2(seconds < 0.2, qPrintable(QString::number(seconds)));
}

void TestTransport::libraryMayBeLeftFirst()
{
    {
        Connected link;
        sendCounting(link.device, 1, 10);
        hid().exit();
    }
    QCOMPARE(writtenValues(), counting(1, 10));
    QCOMPARE(fakehid::openHandles(), 0);
}

QTEST_GUILESS_MAIN(TestTransport)
#include "tst_transport.moc"
