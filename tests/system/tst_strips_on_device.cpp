// Every control of the five input strips, moved by hand and from the device, down to the bytes that the device sees.

#include "Console.h"
#include "RandomHands.h"

#include "device/USBAudioAPI.h"
#include "device/USBHIDAPI.h"
#include "resources/Resources.h"

#include <QDir>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTimer>
#include <cmath>

namespace
{

const QRegularExpression kAnyWarning(".?");

} // namespace

class tst_strips_on_device : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void eachControlSendsItsFrame_data();
    void eachControlSendsItsFrame();
    void aDragSendsEachStepOnce();
    void controlsOfTheConsole();
    void soloIsABurstOfMutes();
    void eachReportMovesItsWidget();
    void deviceAndWorkspaceStayOfOneMind();

private:
    QTemporaryDir mFolder;
};

void tst_strips_on_device::initTestCase()
{
    quillon::initResources();
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QVERIFY(QDir().mkpath(config));
    QFile registration(config + "/TUSBAUDIO.conf");
    QVERIFY(registration.open(QIODevice::WriteOnly));
    registration.write("[CLSID]\n{E97E1508-2A66-4DF8-B7A7-32D6E5FCBA46}\\InprocServer32=" R47DRIVER "\n");
    registration.close();
    AppSettingsSubject::instance();
    USBHIDAPI::instance().init();
    QVERIFY(USBAudioAPI::instance().Init());
}

void tst_strips_on_device::init()
{
    QTest::failOnWarning(kAnyWarning);
    WorkspaceSubject::instance().close();
    QSettings().clear();
    AppSettingsSubject::instance().init();
    const QString folder = mFolder.filePath(QString::fromLatin1(QTest::currentTestFunction()));
    QDir(folder).removeRecursively();
    QVERIFY(QDir().mkpath(folder) && QDir::setCurrent(folder));
}

void tst_strips_on_device::eachControlSendsItsFrame_data()
{
    QTest::addColumn<QString>("strip");
    for (const char* strip : kStrips)
        QTest::newRow(strip) << QString(strip);
}

// One console for all controls of a strip: each goes on from what the one before has left.
void tst_strips_on_device::eachControlSendsItsFrame()
{
    QFETCH(const QString, strip);
    const bool isMicrophone = strip == "Input_IN1" || strip == "Input_IN2";
    const QMap<QString, QString> blocks{
        {"Input_IN1", "21"}, {"Input_IN2", "22"}, {"Input_AUX", "23"}, {"Input_BT", "25"}, {"Input_OTGIN", "27"}};
    const QString block = blocks[strip];
    Console console;
    QWidget* dial = console.part(strip, "widgetDial");
    const auto dialDb = [dial] { return dynamic_cast<quillon::ValueControlHost*>(dial)->valueControl().accessibleValue(); };
    const double initial = dialDb();
    QStringList page = console.sent();
    QVERIFY(page.contains(block + QString("04 %1").arg(wireGain(strip, initial))));

    const double fine = isMicrophone ? 1 : 0.5;
    const auto gain = [&](double db) { return block + QString("04 %1").arg(wireGain(strip, db)); };
    move(dial, Hand::Wheel, -1);
    QCOMPARE(console.sent(), QStringList{gain(initial - fine)});
    move(dial, Hand::Key, Qt::Key_Down);
    QCOMPARE(console.sent(), QStringList{gain(initial - 2 * fine)});
    move(dial, Hand::Double, 0);
    QCOMPARE(console.sent(), QStringList{gain(initial)});
    move(dial, Hand::Double, 0); // it stands there already
    QCOMPARE(console.sent(), QStringList());
    move(dial, Hand::Wheel, -500);
    QVERIFY(wireGain(strip, dialDb()) <= 1);
    QCOMPARE(console.sent(), QStringList{block + "04 0"});
    move(dial, Hand::Wheel, -1);
    QCOMPARE(console.sent(), QStringList());

    const auto press = [&](const char* button, Hand hand) { move(console.part(strip, button), hand, 0); };
    press("PushButtonMUTE", Hand::Click);
    QCOMPARE(console.sent(), QStringList{block + "05 1"});
    press("PushButtonMUTE", Hand::Space);
    QCOMPARE(console.sent(), QStringList{block + "05 0"});
    press("PushButtonMUTE", Hand::Click);
    console.sent();
    move(dial, Hand::Double, 0); // a turn releases the mute, gain first
    QCOMPARE(console.sent(), QStringList({gain(initial), block + "05 0"}));
    if (isMicrophone) {
        press("PushButton48V", Hand::Click);
        QCOMPARE(console.sent(), QStringList{block + "03 1"});
        press("PushButton48V", Hand::Space);
        QCOMPARE(console.sent(), QStringList{block + "03 0"});
    }
    if (strip == "Input_IN1") {
        for (const auto& [button, value] : {std::pair("PushButtonMicHP", 3), {"PushButtonMic1", 1}, {"PushButtonMic35", 2}}) {
            press(button, Hand::Click);
            QCOMPARE(console.sent(), QStringList{QString("2102 %1").arg(value)});
            press(button, Hand::Click); // the chosen one again
            QCOMPARE(console.sent(), QStringList());
        }
    }
}

void tst_strips_on_device::aDragSendsEachStepOnce()
{
    Console console;
    for (const char* strip : kStrips) {
        QWidget* dial = console.part(strip, "widgetDial");
        console.sent();
        for (const int pixels : {-40, 25, 400}) {
            drag(dial, {0, -pixels});
            const QStringList frames = console.sent();
            QVERIFY2(!frames.isEmpty(), strip);
            QList<int> values;
            for (const QString& frame : frames)
                values += frame.split(' ')[1].toInt();
            const bool rising = pixels > 0;
            QVERIFY(std::is_sorted(values.begin(), values.end(), [rising](int a, int b) { return rising ? a < b : b < a; }));
            QVERIFY(std::adjacent_find(values.begin(), values.end()) == values.end());
            const double db = dynamic_cast<quillon::ValueControlHost*>(dial)->valueControl().accessibleValue();
            QCOMPARE(values.last(), wireGain(strip, db));
        }
    }
}

void tst_strips_on_device::controlsOfTheConsole()
{
    Console console;
    console.sent();
    const QStringList before = console.shown();
    for (const char* strip : kStrips) {
        auto* name = qobject_cast<QLineEdit*>(console.part(strip, "lineEdit"));
        name->selectAll();
        move(name, Hand::Type, 0);
        QCOMPARE(name->text(), QString("Vox"));
    }
    QCOMPARE(console.sent(), QStringList());
    // The mixes have the place between the sides; the device knows one switch of ducking, and one of each equalizer.
    static const QRegularExpression mix("^3.0[9a] ");
    for (const char* strip : {"Input_IN1", "Input_IN2"}) {
        QWidget* balance = console.part(strip, "widgetHSlider");
        move(balance, Hand::Wheel, 3);
        move(balance, Hand::Key, Qt::Key_Left);
        move(balance, Hand::DragRight, 20);
        move(balance, Hand::Double, 0);
        move(balance, Hand::Key, Qt::Key_Right);
        const QStringList frames = console.sent();
        QVERIFY(!frames.isEmpty());
        QCOMPARE(frames.filter(mix), frames);
        for (const char* button : {"PushButtonEQ", "PushButtonDUCKING"}) {
            auto* plate = qobject_cast<QPushButton*>(console.part(strip, button));
            move(plate, Hand::Click, 0);
            QTRY_VERIFY(plate->isChecked()); // a click shows itself when it can no longer become a double one
            move(plate, Hand::Space, 0);
        }
        const QString equalizer = QLatin1StringView(strip) == QLatin1StringView("Input_IN1") ? "9b0f " : "9b10 ";
        QCOMPARE(console.sent(), QStringList({equalizer + '1', equalizer + '0', "4307 1", "4307 0"}));
    }
    QVERIFY(console.shown() != before);
    // A window that opens and is closed again before anything was measured leaves the gain alone.
    QTimer watch;
    bool closed = false;
    connect(&watch, &QTimer::timeout, this, [&] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            closed = true;
            modal->close();
        }
    });
    watch.start(5);
    for (const char* strip : {"Input_IN1", "Input_IN2"}) {
        closed = false;
        move(console.part(strip, "PushButtonAUTO"), Hand::Click, 0);
        QTRY_VERIFY(closed);
        QTRY_VERIFY(!QApplication::activeModalWidget());
    }
    QCOMPARE(console.sent(), QStringList());
}

void tst_strips_on_device::soloIsABurstOfMutes()
{
    Console console;
    console.sent();
    const auto press = [&](int strip, const char* button) { move(console.part(kStrips[strip], button), Hand::Click, 0); };
    press(2, "PushButtonMUTE");
    press(3, "PushButtonMUTE");
    QCOMPARE(console.sent(), QStringList({"2305 1", "2505 1"}));
    press(1, "PushButtonSOLO"); // all others fall silent, the muted ones stay so
    QCOMPARE(console.sent(), QStringList({"2105 1", "2705 1"}));
    press(3, "PushButtonMUTE"); // joins the solo, and is muted no more
    QCOMPARE(console.sent(), QStringList{"2505 0"});
    press(1, "PushButtonSOLO"); // leaves it
    QCOMPARE(console.sent(), QStringList{"2205 1"});
    press(3, "PushButtonSOLO"); // the last one: what was muted by hand stays muted
    QCOMPARE(console.sent(), QStringList({"2105 0", "2205 0", "2705 0"}));
    for (int round = 0; round < 2; ++round)
        for (int strip = 0; strip < 5; ++strip)
            press(strip, "PushButtonSOLO");
    console.sent();
    QCOMPARE(RandomHands::deviceSays(console), RandomHands::workspaceSays());
    QCOMPARE(console.parameters()["2305"].toInt(), 1);
    QCOMPARE(console.parameters()["2505"].toInt(), 0);
}

void tst_strips_on_device::eachReportMovesItsWidget()
{
    Console console;
    console.hear();
    console.hear(); // plugged in again
    console.sent();
    const auto check = [&](const QString& report, const QStringList& changes) {
        const QStringList before = console.shown();
        console.unit().ask("frame " + report);
        console.hear();
        console.hear();
        QStringList different;
        const QStringList after = console.shown();
        for (int i = 0; i < after.size(); ++i)
            if (after[i] != before.at(i))
                different += after[i];
        bool same = different.size() == changes.size();
        for (int i = 0; same && i < changes.size(); ++i)
            same = different[i].startsWith(changes[i]);
        QVERIFY2(same, qPrintable(report + " changes " + different.join(", ")));
        QCOMPARE(console.sent(), QStringList());
    };
    for (const char* nothing :
         {"2101 2", "2101 2147483647", "2401 -2147483648", "2105 0", "2107 1", "2203 0", "2901 -10", "5102 1", "2102 99", "ffff 1"})
        check(nothing, {});
    check("2102 3", {"Input_IN1 PushButtonMic1 off", "Input_IN1 PushButtonMicHP on"});
    const char* codes[] = {"21", "22", "23", "25", "27"};
    const char* gains[] = {"50", "50", "-21", "-39", "-39"}; // what the wire value 50 means on each
    for (int i = 0; i < 5; ++i) {
        const QString strip = kStrips[i];
        const QString block = codes[i];
        check(block + "01 -120", {strip + " widgetVolumeMeter -12"});
        if (i >= 2)
            check(QString("2%1").arg(QString(block[1]).toInt() + 1) + "01 -110", {strip + " widgetVolumeMeter -11"});
        check(block + "04 50", {strip + " widgetDial " + gains[i]});
        check(block + "05 7", {strip + " PushButtonMUTE on"});
        if (i > 0) // that of IN 1 is what hear() looks at
            check(block + "06 0", {strip + " widgetOverlay shown"});
        if (i < 2)
            check(block + "03 1", {strip + " PushButton48V on"});
    }
}

void tst_strips_on_device::deviceAndWorkspaceStayOfOneMind()
{
    Console console;
    RandomHands random(console, 47);
    for (int event = 0; event < 2000;) {
        const int batch = random.below(12) + 1;
        for (int i = 0; i < batch; ++i)
            random.useControl();
        event += batch;
        console.sent(); // the console and the unit are not turned at the same moment
        for (int i = 0; i < batch; ++i) {
            random.turnUnit();
            console.hear();
            console.sent();
        }
        event += batch;
        if (event % 10 == 0)
            QCOMPARE(RandomHands::deviceSays(console), RandomHands::workspaceSays());
    }
    const QStringList kept = RandomHands::deviceSays(console);
    QCOMPARE(kept, RandomHands::workspaceSays());

    console.open();
    QStringList frames = console.sent();
    QVERIFY(frames.size() > 3);
    QCOMPARE(frames.takeFirst(), QString("1101 1"));
    QCOMPARE(frames.takeFirst(), QString("1120 1"));
    QCOMPARE(frames.takeLast(), QString("1120 0"));
    QVERIFY(!frames.contains("1120 1") && !frames.contains("1120 0"));
    QCOMPARE(frames.filter(QRegularExpression("^2")), kept);
}

QTEST_MAIN(tst_strips_on_device)
#include "tst_strips_on_device.moc"
