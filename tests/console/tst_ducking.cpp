// The ducking window: what its controls tell, what a load brings back, and that a report of the device is not sent back.

#include "console/ducking/DuckingMap.h"
#include "console/ducking/R47_PrivateWidget1.h"
#include "controls/DialS1M5.h"
#include "device/ParameterTable.h"
#include "resources/Resources.h"
#include "tests/strips/StripBench.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace
{

const QStringList kFresh{u"Threshold=-30"_s, u"Attack=200"_s, u"Reduction=16"_s,   u"Release=1000"_s,  u"DuckingSwitch=0"_s,
                         u"MapIN1=0"_s,      u"MapIN2=0"_s,   u"IN1WorkState=0"_s, u"IN2WorkState=0"_s};

struct Bench {
    Bench()
    {
        workspace.attach(panel);
        record.listen(&panel);
        panel.show();
        QApplication::setActiveWindow(&panel);
        panel.loadSettings();
        fresh = record.take();
    }
    template<class Widget> Widget* child(const QString& name) const { return panel.findChild<Widget*>(name); }
    QPushButton* button(const QString& key) const { return child<QPushButton>("pushButton"_L1 + key); }
    QString stored(const QString& key) const { return workspace.value(u"Ducking"_s, key).toString(); }

    bench::OpenWorkspace workspace;
    bench::Record record;
    R47_PrivateWidget1 panel;
    QStringList fresh;
};

QStringList working(const QString& attribute, const char* one, const char* two)
{
    return {attribute, u"IN1WorkState="_s + QLatin1StringView(one), u"IN2WorkState="_s + QLatin1StringView(two)};
}

} // namespace

class tst_ducking : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { quillon::initResources(); }

    void dials_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("initial");
        QTest::addColumn<int>("fine");
        QTest::addColumn<int>("coarse");
        QTest::addColumn<int>("minimum");
        QTest::addRow("threshold") << u"Threshold"_s << -30 << 1 << 1 << -60;
        QTest::addRow("attack") << u"Attack"_s << 200 << 10 << 50 << 0;
        QTest::addRow("reduction") << u"Reduction"_s << 16 << 1 << 1 << 1;
        QTest::addRow("release") << u"Release"_s << 1000 << 10 << 50 << 10;
    }
    void dials()
    {
        QFETCH(QString, name);
        QFETCH(int, initial);
        QFETCH(int, fine);
        QFETCH(int, coarse);
        QFETCH(int, minimum);
        Bench bench;
        QCOMPARE(bench.fresh, kFresh);
        auto* dial = bench.child<DialS1M5>("dial"_L1 + name);
        const auto says = [&](int value) { return QStringList{name + u'=' + QString::number(value)}; };
        QTest::keyClick(dial, Qt::Key_Up);
        QCOMPARE(bench.record.take(), says(initial + fine));
        QCOMPARE(bench.stored(name), QString::number(initial + fine));
        QTest::mouseDClick(dial, Qt::LeftButton);
        QCOMPARE(bench.record.take(), says(initial));
        const QPoint centre = dial->rect().center();
        QTest::mousePress(dial, Qt::LeftButton, {}, centre);
        QTest::mouseMove(dial, centre + QPoint(0, 5));
        QTest::mouseRelease(dial, Qt::LeftButton, {}, centre + QPoint(0, 5));
        QCOMPARE(bench.record.take(), says(initial - coarse));
        QTest::mouseClick(dial, Qt::RightButton);
        QTest::keyClicks(QApplication::focusWidget(), QString::number(minimum));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(bench.record.take(), says(minimum));
        QTest::keyClick(dial, Qt::Key_Down);
        QCOMPARE(bench.record.take(), QStringList());
        QVERIFY(bench.panel.isVisible());
    }

    void mapAndSwitch()
    {
        Bench bench;
        // The switch alone lowers nothing: there is no work to do.
        QTest::keyClick(bench.button(u"DuckingSwitch"_s), Qt::Key_Space);
        QCOMPARE(bench.record.take(), working(u"DuckingSwitch=1"_s, "0", "0"));
        QCOMPARE(bench.stored(u"DuckingSwitch"_s), u"true"_s);
        int map = 0;
        for (int row = 0; row < quillon::DuckingMap::kRows; ++row) {
            QTest::mouseClick(bench.button(quillon::DuckingMap::key(0, row)), Qt::LeftButton);
            map |= 1 << row;
            QCOMPARE(bench.record.take(), working(u"MapIN1=%1"_s.arg(map), "1", "0"));
        }
        QTest::mouseClick(bench.button(u"IN1Playback9_10"_s), Qt::LeftButton);
        QCOMPARE(bench.record.take(), working(u"MapIN1=127"_s, "1", "0"));
        QCOMPARE(bench.stored(u"IN1Playback9_10"_s), u"false"_s);
        QTest::mouseClick(bench.button(u"IN2OTGIN"_s), Qt::LeftButton);
        QCOMPARE(bench.record.take(), working(u"MapIN2=4"_s, "1", "1"));

        bench.panel.loadSettings();
        QStringList loaded = kFresh;
        for (const auto& [at, event] : {std::pair{4, u"DuckingSwitch=1"_s}, {5, u"MapIN1=127"_s}, {6, u"MapIN2=4"_s}}) {
            loaded[at] = event;
        }
        QCOMPARE(bench.record.take(), loaded.mid(0, 7) + working({}, "1", "1").mid(1));

        bench.panel.setLayoutForMobile(false); // what is hidden stays in force
        QVERIFY(!bench.button(u"IN1Playback3_4"_s)->isVisible() && bench.button(u"IN2Playback1_2"_s)->isVisible());
        QCOMPARE(bench.panel.mapOf(0), 127);
        bench.panel.setLayoutForMobile(true);
        QVERIFY(bench.button(u"IN1Playback3_4"_s)->isVisible() && bench.child<QLabel>(u"labelPlayback9_10"_s)->isVisible());
        QCOMPARE(bench.record.take(), QStringList());
    }

    void fileOfStrangeValues()
    {
        Bench bench;
        for (const auto& [key, value] :
             {std::pair{"Threshold", "-400"}, {"Attack", "fast"}, {"DuckingSwitch", "1"}, {"IN2BT", "true"}}) {
            bench.workspace.file().setValue("Ducking/"_L1 + QLatin1StringView(key), QString::fromLatin1(value));
        }
        bench.workspace.file().remove(u"Ducking/IN1AUX"_s);
        bench.panel.loadSettings();
        QCOMPARE(bench.record.take().mid(0, 7),
                 QStringList({u"Threshold=-60"_s, u"Attack=0"_s, u"Reduction=16"_s, u"Release=1000"_s, u"DuckingSwitch=1"_s,
                              u"MapIN1=0"_s, u"MapIN2=2"_s}));
    }

    void switchFromElsewhere()
    {
        struct Row {
            bool on, persist, notify;
            QStringList events;
        };
        const QStringList told = working({}, "1", "0").mid(1);
        const QStringList gone = working({}, "0", "0").mid(1);
        Bench bench;
        QTest::mouseClick(bench.button(u"IN1AUX"_s), Qt::LeftButton);
        bench.record.take();
        for (const Row& row : {Row{true, false, true, told}, // the device reports
                               Row{true, true, true, told},  // a strip asks for what is so already
                               Row{false, true, true, working(u"DuckingSwitch=0"_s, "0", "0")}, // and for a change
                               Row{true, false, false, {}}, Row{false, false, true, gone}}) {
            bench.panel.setDuckingSwitch(row.on, row.persist, row.notify);
            QCOMPARE(bench.record.take(), row.events);
            QCOMPARE(bench.stored(u"DuckingSwitch"_s), row.on ? u"true"_s : u"false"_s);
            QCOMPARE(bench.button(u"DuckingSwitch"_s)->text(), row.on ? u"ON"_s : u"OFF"_s);
            QTest::mouseClick(bench.button(u"IN2AUX"_s), Qt::LeftButton); // sends what differs
            QVERIFY(!bench.record.attributes().contains(u"DuckingSwitch"_s));
            QTest::mouseClick(bench.button(u"IN2AUX"_s), Qt::LeftButton);
            bench.record.take();
        }
        bench.panel.deviceSetter(u"DuckingSwitch")(true);
        QCOMPARE(bench.record.take(), told);
        QVERIFY(bench.button(u"DuckingSwitch"_s)->isChecked());
        bench.panel.deviceSetter(u"MeterIN1")(-60);
        QVERIFY(!bench.panel.deviceSetter(u"Threshold"));
    }

    void savedEventsBearTheNamesOfTheDevice()
    {
        Bench bench;
        bench.panel.setSaveEvents(true);
        bench.panel.loadSettings();
        QCOMPARE(bench.record.take().mid(0, 8),
                 QStringList({u"Save_ChannelName=IN 1+2"_s, u"Save_Threshold=-30"_s, u"Save_Attack=200"_s, u"Save_Reduction=16"_s,
                              u"Save_Release=1000"_s, u"Save_DuckingSwitch=0"_s, u"Save_MapIN1=0"_s, u"Save_MapIN2=0"_s}));
        QTest::mouseClick(bench.button(u"IN2BT"_s), Qt::LeftButton);
        QCOMPARE(bench.record.take().mid(0, 2), QStringList({u"Save_MapIN2=2"_s, u"MapIN2=2"_s}));
    }

    void everyParameterHasItsRow()
    {
        for (const QString& event : kFresh) {
            const auto* row = quillon::findParameter(quillon::Family::Others, u"Ducking"_s, event.section(u'=', 0, 0));
            QCOMPARE(row != nullptr, !event.contains(u"WorkState"_s)); // those are the console's own
        }
    }

    void wheelAndKeyboard()
    {
        Bench bench;
        QPointer<QWidget> first = QApplication::focusWidget();
        QCOMPARE(first.data(), bench.button(u"DuckingSwitch"_s));
        QSet<QWidget*> reached;
        for (int i = 0; i < 40; ++i) {
            reached += QApplication::focusWidget();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(reached.size(), 1 + 4 + 16 + 1); // and the close button
        for (QWidget* widget : std::as_const(reached)) {
            QVERIFY2(!QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty(),
                     qPrintable(widget->objectName()));
        }
        QWidget* ground = bench.button(u"DuckingSwitch"_s)->parentWidget();
        QWheelEvent wheel({5, 5}, ground->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QVERIFY(QApplication::sendEvent(ground, &wheel) && wheel.isAccepted());
        QTest::keyClick(&bench.panel, Qt::Key_Escape);
        QVERIFY(!bench.panel.isVisible());
    }
};

QTEST_MAIN(tst_ducking)
#include "tst_ducking.moc"
