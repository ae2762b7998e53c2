#include "Recorder.h"
#include "device/USBAudioAPI.h"
#include "tests/virtual/RunningR47.h"
#include "update/UpdateThread.h"
#include "update/UpdaterFirmwareM1.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

/// A virtual device in update mode, active in the driver bridge, and a firmware file for it.
struct Bench {
    Bench() : updater(UpdaterFirmwareM1::instance()), told(updater)
    {
        unit.ask(u"dfu seconds 0.4"_s);
        QVERIFY(USBAudioAPI::instance().setDeviceToActiveByName(u"R47"_s));
        image = unit.path(u"R47.bin"_s);
        QFile file(image);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(5000, 'f'));
    }
    QString run()
    {
        told.events.clear();
        updater.update(image);
        return told.outcome(u"Update"_s);
    }
    QList<int> percents() const
    {
        QList<int> numbers;
        for (const QString& value : told.of(u"UpdateProgress"_s)) {
            numbers += value.toInt();
        }
        return numbers;
    }

    RunningR47 unit;
    UpdaterFirmwareM1& updater;
    Recorder told;
    QString image;
};

} // namespace

class tst_update_firmware : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
    void wholeUpdate();
    void refusedStart();
    void failsOnTheWay();
    void unplugged_data();
    void unplugged();
    void stuck();
    void comesBackInUpdateMode();
    void threadEndsInTheMiddle();
};

void tst_update_firmware::initTestCase()
{
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QVERIFY(QDir().mkpath(config));
    QFile registration(config + u"/TUSBAUDIO.conf"_s);
    QVERIFY(registration.open(QIODevice::WriteOnly));
    registration.write("[CLSID]\n{E97E1508-2A66-4DF8-B7A7-32D6E5FCBA46}\\InprocServer32=" R47DRIVER "\n");
    registration.close();
    QVERIFY(USBAudioAPI::instance().Init());
}

void tst_update_firmware::wholeUpdate()
{
    Bench bench;
    bench.unit.ask(u"dfu seconds 1.5"_s);
    QCOMPARE(bench.run(), u"Success"_s);
    QStringList events = bench.told.events;
    QCOMPARE(events.mid(0, 4), QStringList({u"UpdateState Start"_s, u"UpdateFileSize 4.9 KB"_s, u"UpdateProgress 1"_s,
                                            u"UpdateCompleted "_s + bench.told.of(u"UpdateCompleted"_s).constFirst()}));
    QCOMPARE(events.mid(events.size() - 3),
             QStringList({u"UpdateProgress 100"_s, u"UpdateCompleted 4.9 KB"_s, u"UpdateState Success"_s}));
    QList<int> percents = bench.percents();
    QVERIFY(percents.size() > 30);
    QVERIFY(std::adjacent_find(percents.cbegin(), percents.cend(), std::greater_equal<>()) == percents.cend());
    const QStringList speeds = bench.told.of(u"UpdateSpeed"_s);
    QCOMPARE(speeds.size(), 1);
    const double speed = speeds[0].section(u' ', 0, 0).toDouble();
    QVERIFY2(speeds[0].endsWith(u" KB/s"_s) && speed > 2.0 && speed < 4.5, qPrintable(speeds[0]));
}

void tst_update_firmware::refusedStart()
{
    Bench bench;
    bench.unit.ask(u"dfu refuse on"_s);
    QTest::ignoreMessage(QtWarningMsg, "USBAudioAPI::setDFUStart //failed to start dfu download");
    QCOMPARE(bench.run(), u"Failed"_s);
    QCOMPARE(bench.told.events, QStringList{u"UpdateState Failed"_s});
    bench.unit.ask(u"dfu refuse off"_s);
    QCOMPARE(bench.run(), u"Success"_s);
}

void tst_update_firmware::failsOnTheWay()
{
    Bench bench;
    bench.unit.ask(u"dfu fail 50"_s);
    QTest::ignoreMessage(QtWarningMsg, "USBAudioAPI::getDFUPercentageComplete //dfu failed");
    QCOMPARE(bench.run(), u"Failed"_s);
    QCOMPARE(bench.percents().constLast(), 0);
    QCOMPARE(bench.unit.ask(u"dfu state"_s), QByteArray("0 0 0")); // it was ended
    bench.unit.ask(u"dfu fail off"_s);
    QCOMPARE(bench.run(), u"Success"_s);
}

void tst_update_firmware::unplugged_data()
{
    QTest::addColumn<int>("percent");
    for (int percent = 0; percent < 100; percent += 10) {
        QTest::addRow("%d", percent) << percent;
    }
}

void tst_update_firmware::unplugged()
{
    QFETCH(const int, percent);
    Bench bench;
    bench.unit.ask(u"dfu stick "_s + QString::number(percent + 5)); // however late the plug is pulled, the download is not done
    connect(&bench.updater, &UpdaterBase::attributeChanged, &bench.told, [&](const QString& attribute, const QString& value) {
        if (attribute == u"UpdateProgress"_s && value.toInt() >= percent && bench.unit.ask(u"state"_s).contains("\"plugged\":1")) {
            bench.unit.ask(u"unplug"_s);
        }
    });
    QTest::ignoreMessage(QtWarningMsg, "USBAudioAPI::getDFUPercentageComplete //dfu failed");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(bench.run(), u"Failed"_s);
    QVERIFY(timer.elapsed() < 2000);
    QCOMPARE(bench.percents().constLast(), 0);
    QCOMPARE(bench.told.of(u"UpdateState"_s), QStringList({u"Start"_s, u"Failed"_s}));
}

void tst_update_firmware::stuck()
{
    Bench bench;
    bench.unit.ask(u"dfu stick 30"_s);
    bench.updater.update(bench.image);
    QTRY_COMPARE(bench.told.of(u"UpdateSpeed"_s).size(), 2);
    QCOMPARE(bench.percents().constLast(), 30);
    QCOMPARE(bench.told.of(u"UpdateSpeed"_s).constLast(), u"0.0 B/s"_s);
    const qsizetype told = bench.percents().size();
    bench.unit.ask(u"dfu stick off"_s);
    QCOMPARE(bench.told.outcome(u"Update"_s), u"Success"_s);
    QVERIFY(bench.percents().size() > told);
}

void tst_update_firmware::comesBackInUpdateMode()
{
    Bench bench;
    bench.unit.ask(u"dfu seconds 5"_s);
    bench.updater.update(bench.image);
    QTRY_VERIFY(!bench.percents().isEmpty());
    QTest::ignoreMessage(QtWarningMsg, "USBAudioAPI::getDFUPercentageComplete //dfu failed");
    bench.unit.ask(u"unplug"_s);
    QCOMPARE(bench.told.outcome(u"Update"_s), u"Failed"_s);
    // Without a device in the list nothing begins, and no line says so; with it everything does.
    QCOMPARE(bench.run(), u"Failed"_s);
    QCOMPARE(bench.told.events, QStringList{u"UpdateState Failed"_s});
    bench.unit.ask(u"plug"_s);
    bench.unit.ask(u"dfu seconds 0.2"_s);
    QCOMPARE(bench.run(), u"Success"_s);
}

// The last test: the singleton ends with its thread.
void tst_update_firmware::threadEndsInTheMiddle()
{
    Bench bench;
    bench.unit.ask(u"dfu stick 40"_s);
    bench.updater.update(bench.image);
    QTRY_VERIFY(bench.percents().contains(40));
    QElapsedTimer timer;
    timer.start();
    UpdateThread::stop();
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(bench.unit.ask(u"dfu state"_s), QByteArray("0 0 0"));
}

QTEST_GUILESS_MAIN(tst_update_firmware)
#include "tst_update_firmware.moc"
