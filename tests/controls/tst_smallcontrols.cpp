#include "controls/BatteryS1M1.h"
#include "controls/ButtonBoxS1M1.h"
#include "controls/CircleS1M1.h"
#include "tests/controls/Hands.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

QPushButton* entry(const ButtonBoxS1M1& box, const QString& name)
{
    for (auto* button : box.findChildren<QPushButton*>())
        if (button->accessibleName() == name)
            return button;
    return nullptr;
}

QPushButton* plus(const ButtonBoxS1M1& box)
{
    return box.findChild<QPushButton*>(u"pushButtonAddition"_s);
}

void enter(QWidget& widget)
{
    QEnterEvent event({}, {}, {});
    QCoreApplication::sendEvent(&widget, &event);
}

void leave(QWidget& widget)
{
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(&widget, &event);
}

/// What a strategy leaves in the middle row of a rectangle 100 wide: 1 for lit, 0 for dark.
QString row(BatteryDrawStrategy& strategy, int level, bool charging)
{
    QImage image(100, 10, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    strategy.drawBattery(painter, image.rect(), level, 10, charging, {});
    painter.end();
    QString lit;
    for (int x = 5; x < 100; x += 10)
        lit += image.pixelColor(x, 5) == QColor(Qt::black) ? u'0' : u'1';
    return lit;
}

} // namespace

class TestSmallControls : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        // The offscreen platform says this of every window with a minimum size.
        QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
    }

    void circleRepaintsOnlyOnAChange()
    {
        CircleS1M1 circle;
        PaintCount paints;
        circle.installEventFilter(&paints);
        circle.resize(100, 100);
        circle.setMode(CircleS1M1::Counting);
        circle.setValue(15);
        circle.show();
        QVERIFY(QTest::qWaitForWindowExposed(&circle));
        QTRY_VERIFY(paints.count > 0);

        const auto paintsAfter = [&](auto change) {
            QCoreApplication::processEvents();
            paints.count = 0;
            change();
            QCoreApplication::processEvents();
            return paints.count;
        };
        QCOMPARE(paintsAfter([&] { circle.setMode(CircleS1M1::Counting); }), 0);
        QCOMPARE(paintsAfter([&] { circle.setValue(15); }), 0);
        QCOMPARE(paintsAfter([&] { circle.setMode(4); }), 0);
        QCOMPARE(paintsAfter([&] { circle.setValue(std::numeric_limits<float>::quiet_NaN()); }), 0);
        QCOMPARE(circle.mode(), quint32(CircleS1M1::Counting));
        QCOMPARE(circle.value(), 15.0F);
        QCOMPARE(paintsAfter([&] { circle.setValue(14); }), 1);
        QCOMPARE(paintsAfter([&] { circle.setMode(CircleS1M1::Failed); }), 1);
    }

    void circleArcRunsClockwiseFromTheTop()
    {
        CircleS1M1 circle;
        circle.resize(200, 120); // the sign stands in the centred square
        circle.setMode(CircleS1M1::Counting);
        const auto ringAt = [&](int x, int y) { return circle.grab().toImage().pixelColor(x, y); };
        const QColor green(67, 207, 124);
        circle.setValue(15);
        QCOMPARE(ringAt(43, 60), green);
        circle.setValue(7.5F); // half a turn: the right side
        QCOMPARE(ringAt(156, 60), green);
        QVERIFY(ringAt(43, 60) != green);
        circle.setValue(100); // beyond the maximum is one full turn, not more
        QCOMPARE(ringAt(43, 60), green);
        circle.setValue(-1);
        QVERIFY(ringAt(156, 60) != green);
        circle.setMode(CircleS1M1::Failed);
        QCOMPARE(ringAt(156, 60), QColor(255, 87, 51));
    }

    void circleTellsItsValueToAssistiveTechnology()
    {
        CircleS1M1 circle;
        circle.setMode(CircleS1M1::Counting);
        circle.setValue(9);
        auto* face = QAccessible::queryAccessibleInterface(&circle);
        QVERIFY(face && face->valueInterface());
        QCOMPARE(face->valueInterface()->currentValue().toFloat(), 9.0F);
        QCOMPARE(face->valueInterface()->maximumValue().toFloat(), 15.0F);
        QCOMPARE(face->text(QAccessible::Value), u"9 Second"_s);
        circle.setMode(CircleS1M1::Failed);
        QCOMPARE(face->text(QAccessible::Value), u"Error"_s);
    }

    void batteryFrameTellsALowCharge()
    {
        BatteryS1M1 battery;
        battery.resize(180, 100);
        const QColor normal(229, 229, 229);
        const struct {
            int level;
            bool charging;
            QColor frame;
        } rows[] = {{100, false, normal}, {11, false, normal}, {10, false, Qt::yellow}, {6, false, Qt::yellow},
                    {5, false, Qt::red},  {0, false, Qt::red}, {5, true, normal}};
        for (const auto& row : rows) {
            battery.setLevel(row.level);
            battery.setCharging(row.charging);
            QCOMPARE(battery.grab().toImage().pixelColor(80, 6), row.frame);
        }
    }

    void batteryRests()
    {
        BatteryS1M1 battery;
        PaintCount paints;
        battery.installEventFilter(&paints);
        battery.resize(90, 50);
        battery.setCharging(true);
        auto* strategy = new SegmentedBlinkStrategy(nullptr, 4, 0.05, 20);
        battery.setDrawStrategy(strategy);
        QVERIFY(!strategy->isAnimated()); // nobody sees it
        battery.show();
        QVERIFY(QTest::qWaitForWindowExposed(&battery));
        paints.count = 0;
        QTRY_VERIFY(paints.count > 2);
        battery.setCharging(false);
        QCoreApplication::processEvents();
        paints.count = 0;
        battery.setLevel(100);
        QTest::qWait(60);
        QCOMPARE(paints.count, 0);
        battery.setLevel(99);
        QTRY_COMPARE(paints.count, 1);
        battery.setCharging(true);
        battery.hide();
        QVERIFY(!strategy->isAnimated());
        QPointer<BatteryDrawStrategy> old(strategy);
        battery.setDrawStrategy(new ContinuousDrawStrategy);
        QVERIFY(!old);
        QCOMPARE(QAccessible::queryAccessibleInterface(&battery)->text(QAccessible::Value), u"99%, charging"_s);
    }

    void batteryFillFollowsTheLevel()
    {
        ContinuousDrawStrategy bar;
        QCOMPARE(row(bar, 0, false), u"0000000000"_s);
        QCOMPARE(row(bar, 30, false), u"1110000000"_s);
        QCOMPARE(row(bar, 130, false), u"1111111111"_s);
        bar.startAnimation(); // from the level shown last, up, and round
        QCOMPARE(row(bar, 20, true), u"1111111111"_s);
        QTRY_COMPARE(row(bar, 20, true), u"0000000000"_s);
        QTRY_COMPARE(row(bar, 20, true), u"1000000000"_s);

        // Five segments; the active one is lit as well, and blinks while charging.
        SegmentedBlinkStrategy steps(nullptr, 5, 0, 20);
        const struct {
            int level;
            bool charging;
            QString lit;
        } rows[] = {{-1, true, u"0000000000"_s},  {0, false, u"0000000000"_s},  {10, false, u"0000000000"_s},
                    {11, false, u"1100000000"_s}, {5, true, u"1100000000"_s},   {15, true, u"1111000000"_s},
                    {20, false, u"1111000000"_s}, {79, false, u"1111111100"_s}, {100, true, u"1111111111"_s},
                    {101, false, u"1111111111"_s}};
        for (const auto& expected : rows)
            QCOMPARE(row(steps, expected.level, expected.charging), expected.lit);
        steps.startAnimation();
        QTRY_COMPARE(row(steps, 5, true), u"0000000000"_s);
        QCOMPARE(row(steps, 100, true), u"1111111111"_s); // full does not blink
    }

    void boxKeepsItsOrder()
    {
        ButtonBoxS1M1 box;
        box.setNames({u"IN 1"_s, u"IN 2"_s, u"AUX"_s, u"IN 2"_s});
        box.removeName(u"IN 1"_s);
        box.removeName(u"IN 1"_s);
        box.removeName(u"nobody"_s);
        QCOMPARE(box.names(), QStringList({u"IN 2"_s, u"AUX"_s}));
        box.addName(u"IN 1"_s);
        box.addName(u"IN 1"_s);
        QCOMPARE(box.names(), QStringList({u"IN 1"_s, u"IN 2"_s, u"AUX"_s}));
        for (const QString& name : box.names())
            box.removeName(name);
        QVERIFY(box.isEmpty() && !plus(box)->isVisibleTo(&box)); // nothing to add: nothing to press
    }

    void boxOpensAndRaises()
    {
        ButtonBoxS1M1 box;
        box.setNames({u"IN 1"_s, u"R&B"_s});
        box.resize(box.minimumSize());
        QVERIFY(!entry(box, u"IN 1"_s)->isVisibleTo(&box));
        plus(box)->click();
        QVERIFY(box.isOpened() && !plus(box)->isVisibleTo(&box));

        QSignalSpy raised(&box, &ButtonBoxS1M1::attributeChanged);
        // A field lays itself out inside the event and must find the entry gone; a workspace load may even renew the list there.
        bool emptyInEvent = false;
        connect(&box, &ButtonBoxS1M1::attributeChanged, &box, [&] { emptyInEvent = box.isEmpty(); });
        entry(box, u"R&B"_s)->click();
        QCOMPARE(raised.takeFirst(), QVariantList({u"R&B"_s, u"Visible"_s, u"1"_s}));
        QVERIFY(!emptyInEvent && box.isOpened());
        entry(box, u"IN 1"_s)->click();
        QCOMPARE(raised.takeFirst(), QVariantList({u"IN 1"_s, u"Visible"_s, u"1"_s}));
        QVERIFY(emptyInEvent && !box.isOpened());
    }

    void boxSurvivesNewNamesInsideItsEvent()
    {
        ButtonBoxS1M1 box;
        box.setNames({u"A"_s});
        connect(&box, &ButtonBoxS1M1::attributeChanged, &box, [&] { box.setNames({u"B"_s, u"C"_s}); });
        plus(box)->click();
        QTest::mouseClick(entry(box, u"A"_s), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(box.names(), QStringList({u"B"_s, u"C"_s}));
        QVERIFY(!entry(box, u"A"_s));
    }

    void boxClosesASecondAfterThePointerLeft()
    {
        ButtonBoxS1M1 box;
        box.setNames({u"A"_s, u"B"_s});
        plus(box)->click();
        leave(box);
        QTest::qWait(500);
        enter(box); // back in time: it stays
        QTest::qWait(900);
        QVERIFY(box.isOpened());
        leave(box);
        QTRY_VERIFY_WITH_TIMEOUT(!box.isOpened(), 3000);
        QVERIFY(plus(box)->isVisibleTo(&box));
    }

    void boxByKeyboard()
    {
        QWidget window;
        QLineEdit before(&window);
        ButtonBoxS1M1 box(&window);
        box.move(0, 40);
        QLineEdit after(&window);
        box.setNames({u"A"_s, u"B"_s, u"C"_s});
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        before.setFocus();
        QTest::keyClick(&before, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), plus(box));
        QTest::keyClick(plus(box), Qt::Key_Return);
        QVERIFY(box.isOpened());
        QCOMPARE(QApplication::focusWidget(), entry(box, u"A"_s));
        QTest::keyClick(entry(box, u"A"_s), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), entry(box, u"B"_s));

        QSignalSpy raised(&box, &ButtonBoxS1M1::attributeChanged);
        QTest::keyClick(entry(box, u"B"_s), Qt::Key_Return);
        QCOMPARE(raised.value(0).value(0).toString(), u"B"_s);
        QCOMPARE(QApplication::focusWidget(), entry(box, u"C"_s)); // the keyboard is not lost with the button
        QTest::keyClick(entry(box, u"C"_s), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), entry(box, u"A"_s)); // nor with the last of the list
        QTest::keyClick(entry(box, u"A"_s), Qt::Key_Escape);
        QVERIFY(!box.isOpened());
        QCOMPARE(QApplication::focusWidget(), plus(box));
    }

    void boxHoldsMoreEntriesThanFit()
    {
        ButtonBoxS1M1 box;
        box.show();
        for (int i = 0; i < 20; ++i) // more than have room at their own size
            box.addName(u"Playback %1/%2"_s.arg(2 * i + 1).arg(2 * i + 2));
        plus(box)->click();
        int bottom = -1;
        for (const QString& name : box.names()) {
            const QPushButton* button = entry(box, name);
            QVERIFY(button->isVisible());
            QVERIFY(button->y() > bottom);
            bottom = button->geometry().bottom();
            QVERIFY2(button->fontMetrics().horizontalAdvance(name) <= button->width(), "a name is cut off");
        }
        QVERIFY(bottom < box.height());
    }
};

QTEST_MAIN(TestSmallControls)
#include "tst_smallcontrols.moc"
