// The settings on a real link. The device's options reach it and come from it, the driver's are the driver's own whoever sets
// them, another mode and a new firmware take the unit away and bring it back.

#include "WindowHands.h"

#include "console/settings/TabWidgetS1M1.h"
#include "tests/connect/Fakes.h"

#include <QRadioButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTimer>

using namespace Qt::StringLiterals;
using wire::stateOf;

namespace
{

struct Bench : wire::ProConsole {
    /// Opens the settings at a page, as a user does.
    TabWidgetS1M1* settings(const QString& tab)
    {
        auto* dialog = window().findChild<TabWidgetS1M1*>();
        page()->findChild<QAbstractButton*>("SystemSettings")->click();
        QTest::qVerify(dialog->isVisible(), "settings", "shown", __FILE__, __LINE__);
        QTest::mouseClick(dialog->findChild<QRadioButton*>(u"tab"_s + tab), Qt::LeftButton);
        return dialog;
    }
};

/// Counts what a widget paints.
class Paints : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += int(event->type() == QEvent::Paint);
        return false;
    }
};

} // namespace

class tst_settings_on_wire : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { loadLibraries(); }
    // A driver that is looked at in the moment in which the unit goes says so.
    void init() { wire::beginTest(mFolder, u"USBAudioAPI::"_s); }
    void optionsOfTheDevice();
    void factoryReset();
    void anotherMode();
    void driver();
    void firmwareUpdate();

private:
    QTemporaryDir mFolder{wire::quickFolder()};
};

void tst_settings_on_wire::optionsOfTheDevice()
{
    struct Option {
        const char* panel; // the unit tells what it has
        const char* shows;
        const char* control;
        Qt::Key key;
        QStringList told; // by one press of the key after the other
    };
    QStringList single;
    QStringList twice;
    for (int entry = 1; entry < 14; ++entry) {
        single += u"1122 %1"_s.arg(entry);
        twice += u"1123 %1"_s.arg(13 - entry);
    }
    const Option options[]{
        {"Bluetooth 1", "1", "Bluetooth", Qt::Key_Space, {"111a 0", "111a 1"}},
        {"Brightness Dim", "Dim", "Brightness", Qt::Key_Down, {"1104 1", "1104 2"}},
        {"Brightness Bright", "Bright", "Brightness", Qt::Key_Up, {"1104 1", "1104 0"}},
        {"OtgDirection 1", "Discharge", "OtgDirection", Qt::Key_Down, {"111b 0"}},
        {"OtgDirection 0", "Off", "OtgDirection", Qt::Key_Up, {"111b 1"}},
        {"UsbCCharging Charge", "Charge", "UsbCCharging", Qt::Key_Down, {"111c 2", "111c 3"}},
        {"UsbCCharging Disabled", "Off", "UsbCCharging", Qt::Key_Up, {"111c 2", "111c 1"}},
        {"AutoPoweroff 1", "0", "AutoPoweroff", Qt::Key_Space, {"111e 0", "111e 1"}},
        {"MainButtonSingle 0", "Battery Level", "MainButtonSingle", Qt::Key_Down, single},
        {"MainButtonDouble 13", "No function", "MainButtonDouble", Qt::Key_Up, twice},
    };
    Bench bench;
    TabWidgetS1M1* dialog = bench.settings(u"Device"_s);
    for (const Option& option : options) {
        auto* control = dialog->findChild<QWidget*>(QLatin1StringView(option.control));
        bench.console.unit().ask(u"panel SettingsDevice "_s + QLatin1StringView(option.panel));
        bench.console.hear();
        QCOMPARE(stateOf(control), QLatin1StringView(option.shows));
        QCOMPARE(bench.console.sent(), QStringList());
        for (const QString& frame : option.told) {
            QTest::keyClick(control, option.key);
            QCOMPARE(bench.console.sent(), QStringList{frame});
        }
        if (qobject_cast<QComboBox*>(control)) {
            QTest::keyClick(control, option.key); // at its end
            QCOMPARE(bench.console.sent(), QStringList());
        }
    }
}

void tst_settings_on_wire::factoryReset()
{
    Bench bench;
    auto* reset = bench.settings(u"Device"_s)->findChild<QWidget*>("RestoreDefault");
    struct Answer {
        QStringList buttons;
        QStringList frames;
    };
    for (const Answer& answer :
         {Answer{{"PushButton2"}, {"1121 1"}}, {{"CheckBox2", "PushButton2"}, {"1121 1"}}, {{"CheckBox2", "PushButton1"}, {}}}) {
        QTest::keyClick(reset, Qt::Key_Space);
        const QPointer<QWidget> question = QApplication::activeModalWidget();
        QVERIFY(question);
        for (const QString& button : answer.buttons) {
            QTest::mouseClick(question->findChild<QWidget*>(button), Qt::LeftButton);
        }
        QTRY_VERIFY(!question);
        QCOMPARE(bench.console.sent(), answer.frames);
    }
}

void tst_settings_on_wire::anotherMode()
{
    struct Step {
        Qt::Key key;
        int mode;
        int page;
        const char* shows;
    };
    Bench bench;
    for (const Step& step : {Step{Qt::Key_Up, 2, quillon::PageLive, "Live streaming mode"},
                             {Qt::Key_Up, 1, quillon::PageMble, "Mobile mode"},
                             {Qt::Key_End, 3, quillon::PageProf, "Pro audio mode"}}) {
        const QSignalSpy told(&bench.window(), &MainWindow_Base::attributeChanged);
        QTest::keyClick(bench.settings(u"Device"_s)->findChild<QWidget*>("DisplayMode"), step.key);
        QVERIFY(bench.console.unit().tell(u"wait 111d %1"_s.arg(step.mode)));
        QTRY_VERIFY(told.contains(QList<QVariant>{QString(), u"Disconnected"_s, u"1"_s}));
        QTRY_VERIFY(bench.console.unit().ask("state").contains("\"plugged\":1"));
        bench.console.open();
        QCOMPARE(bench.window().pageId(), step.page);
        const QStringList frames = bench.console.sent();
        QCOMPARE(frames.mid(0, 2) + frames.last(1), (QStringList{"1101 1", "1120 1", "1120 0"}));
        QCOMPARE(stateOf(bench.window().findChild<TabWidgetS1M1*>()->findChild<QWidget*>("DisplayMode")),
                 QLatin1StringView(step.shows));
    }
}

void tst_settings_on_wire::driver()
{
    struct Setting {
        const char* elsewhere; // another program
        const char* control;
        const char* shows;
        Qt::Key key;
        const char* has;
    };
    const Setting settings[]{{"driver rate 96000", "SampleRate", "96000 Hz", Qt::Key_Up, "\"rate\":88200"},
                             {"driver buffer 1024", "BufferSize", "1024 samples", Qt::Key_Down, "\"buffer\":2048"},
                             {"driver safe off", "SafeMode", "0", Qt::Key_Space, "\"safe\":true"}};
    Bench bench;
    TabWidgetS1M1* dialog = bench.settings(u"ASIO"_s);
    for (const Setting& setting : settings) {
        auto* control = dialog->findChild<QWidget*>(QLatin1StringView(setting.control));
        bench.console.unit().ask(QLatin1StringView(setting.elsewhere));
        QTRY_COMPARE(stateOf(control), QLatin1StringView(setting.shows));
        QTest::keyClick(control, setting.key);
        const QByteArray state = bench.console.unit().ask("state");
        QVERIFY2(state.contains(setting.has), setting.control + state.left(300));
    }
    // What the user has set is set, and the bar above the page follows.
    QTRY_VERIFY(bench.page()->findChild<QComboBox*>("SampleRate")->currentText().startsWith(u"88"));
    QCOMPARE(stateOf(dialog->findChild<QWidget*>("SampleRate")), u"88200 Hz"_s);
    QCOMPARE(stateOf(dialog->findChild<QWidget*>("BufferSize")), u"2048 samples"_s);
    QCOMPARE(bench.console.sent(), QStringList());
}

void tst_settings_on_wire::firmwareUpdate()
{
    FakeGateway gateway;
    Bench bench;
    gateway.manifest[u"Device/R47/Version"_s] = u"9.9.9"_s;
    bench.window().setUpdateGateway(&gateway);
    TabWidgetS1M1* dialog = bench.settings(u"About"_s);
    emit gateway.fetchFinished(true);
    auto* update = dialog->findChild<QWidget*>("FirmwareVersion");
    QTRY_VERIFY(update->isVisible());

    QStringList told;
    QByteArray unit; // when the console has given over
    QElapsedTimer time;
    qint64 took = 0;
    connect(&bench.window(), &MainWindow_Base::attributeChanged, this,
            [&](const QString& object, const QString& attribute, const QString&) {
                told += object + u' ' + attribute;
                unit = bench.console.unit().ask("state");
                took = time.elapsed();
                QVERIFY(USBAudioAPI::instance().getNameOfAllDevice().contains(u"R47"_s));
            });
    Paints paints;
    bench.window().statusBar()->installEventFilter(&paints);
    QTimer painter;
    connect(&painter, &QTimer::timeout, this, [&] { bench.window().statusBar()->update(); });
    painter.start(20);
    time.start();
    QTest::keyClick(update, Qt::Key_Space);
    QVERIFY(bench.console.unit().tell("wait 111f 1"));
    QTRY_VERIFY(!told.isEmpty());
    const int painted = paints.count;
    QTest::qWait(600); // nothing comes after it
    QCOMPARE(told, QStringList{"R47 UpdateFirmware"});
    QVERIFY2(unit.contains("\"update\":true") && unit.contains("\"plugged\":1"), unit.left(300));
    QVERIFY2(took >= 300, qPrintable(QString::number(took))); // so long it was away
    QVERIFY2(painted >= 3, qPrintable(QString::number(painted)));
    QVERIFY(!dialog->isVisible());
    bench.window().statusBar()->removeEventFilter(&paints);
}

QTEST_MAIN(tst_settings_on_wire)
#include "tst_settings_on_wire.moc"
