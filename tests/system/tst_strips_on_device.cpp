// The five input strips, moved by hand and from the device, down to the bytes that the device sees.

#include "Console.h"
#include "RandomHands.h"

#include <QDir>
#include <QTimer>

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
    void aDragSendsEachStepOnce();
    void controlsOfTheConsole();
    void deviceAndWorkspaceStayOfOneMind();

private:
    QTemporaryDir mFolder;
};

void tst_strips_on_device::initTestCase()
{
    loadLibraries();
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
            const double db = dynamic_cast<quillon::ValueControlHost&>(*dial).valueControl().accessibleValue();
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
