#include "controls/Accessibility.h"
#include "controls/DialS1M1.h"
#include "controls/DialS1M2.h"
#include "controls/DialS1M3.h"
#include "controls/DialS1M4.h"
#include "controls/DialS1M5.h"
#include "controls/DialS1M6.h"
#include "tests/controls/Hands.h"

#include <QAccessibleValueInterface>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <tuple>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

/// A dial with its face flattened, so that one contract runs over all members.
struct Dial {
    QWidget* widget;
    std::function<float()> value;
    std::function<void(float)> setValue;
    std::function<void(float)> setDefault;
    float max;
    float min;
    float start; // a value in the middle of the finest steps
    float step;  // there
    bool clamps; // else it ignores what is outside
};

template<typename T> Dial flatten(T* dial, bool clamps)
{
    Dial flat{dial,
              [dial] { return dial->value(); },
              [dial](float v) { dial->setValue(v); },
              [dial](float v) { dial->setDefault(v); },
              88,
              0,
              26,
              1,
              clamps};
    if constexpr (requires { dial->setLadder(9, -10, -52, -90); }) {
        dial->setLadder(9, -10, -52, -90);
        std::tie(flat.max, flat.min, flat.start, flat.step) = std::tuple(9.0F, -90.0F, 0.0F, 0.5F);
    } else {
        dial->setRange(0, 88);
    }
    return flat;
}

} // namespace

class TestDials : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QWidget> mWindow;
    Dial mDial;
    std::unique_ptr<QSignalSpy> mChanges;

    static void addMembers()
    {
        QTest::addColumn<int>("member");
        for (int member = 1; member <= 6; ++member)
            QTest::addRow("S1M%d", member) << member;
    }

    template<typename... Members> void make(int member)
    {
        int i = 0;
        ((++i == member ? take(new Members(mWindow.get()), member != 1 && member != 3) : void()), ...);
    }

    template<typename T> void take(T* dial, bool clamps)
    {
        mDial = flatten(dial, clamps);
        mChanges = std::make_unique<QSignalSpy>(dial, &T::valueChanged);
    }

    void build()
    {
        QFETCH(int, member);
        mWindow = std::make_unique<QWidget>();
        mWindow->resize(200, 200);
        make<DialS1M1, DialS1M2, DialS1M3, DialS1M4, DialS1M5, DialS1M6>(member);
        mDial.widget->setGeometry(20, 20, 100, 80);
        mWindow->show();
        mWindow->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(mWindow.get()));
        mDial.setDefault(mDial.start);
        mDial.setValue(mDial.start);
    }

    const QPoint mGrip{50, 40};

private slots:
    void initTestCase() { installControlAccessibility(); }

    void settersClampAndAreSilent_data() { addMembers(); }
    void settersClampAndAreSilent()
    {
        build();
        mDial.setValue(1000);
        QCOMPARE(mDial.value(), mDial.clamps ? mDial.max : mDial.start);
        mDial.setValue(-INFINITY);
        QCOMPARE(mDial.value(), mDial.clamps ? mDial.min : mDial.start);
        mDial.setValue(mDial.min);
        mDial.setValue(NAN);
        QCOMPARE(mDial.value(), mDial.min);
        mDial.setDefault(mDial.max + 1);
        QTest::mouseDClick(mDial.widget, Qt::LeftButton, {}, mGrip);
        QCOMPARE(mDial.value(), mDial.start);
        QTest::mouseDClick(mDial.widget, Qt::LeftButton, {}, mGrip); // at the default already
        QCOMPARE(mChanges->count(), 1);
    }

    void dragCountsFromItsStart_data() { addMembers(); }
    void dragCountsFromItsStart()
    {
        build();
        QTest::mousePress(mDial.widget, Qt::LeftButton, {}, mGrip);
        QTest::mouseMove(mDial.widget, mGrip + QPoint(90, -4));
        QCOMPARE(mChanges->count(), 0);
        QTest::mouseMove(mDial.widget, mGrip - QPoint(0, 5));
        QCOMPARE(mDial.value(), mDial.start + mDial.step);
        QTest::mouseMove(mDial.widget, mGrip + QPoint(0, 5));
        QCOMPARE(mDial.value(), mDial.start - mDial.step);
        const int toMax = int((mDial.max - mDial.start) / mDial.step) * 5;
        QTest::mouseMove(mDial.widget, mGrip - QPoint(0, toMax + 200)); // far outside of the dial
        QCOMPARE(mDial.value(), mDial.max);
        QTest::mouseMove(mDial.widget, mGrip - QPoint(0, toMax + 5));
        QCOMPARE(mDial.value(), mDial.max);
        QTest::mouseMove(mDial.widget, mGrip - QPoint(0, toMax - 5));
        QCOMPARE(mDial.value(), mDial.max - mDial.step);
        mDial.setValue(mDial.min); // from the device; the hand goes on
        QTest::mouseMove(mDial.widget, mGrip);
        QCOMPARE(mDial.value(), mDial.start);
        QTest::mouseRelease(mDial.widget, Qt::LeftButton, {}, mGrip);
        QTest::mouseMove(mDial.widget, mGrip - QPoint(0, 50));
        QCOMPARE(mDial.value(), mDial.start);
    }

    void onlyTheDialTakesThePress_data() { addMembers(); }
    void onlyTheDialTakesThePress()
    {
        build();
        const QPoint beside(3, 40); // of 100 by 80 the dial is the square in the middle
        QTest::mousePress(mDial.widget, Qt::LeftButton, {}, beside);
        QTest::mouseMove(mDial.widget, beside - QPoint(0, 50));
        QTest::mouseRelease(mDial.widget, Qt::LeftButton, {}, beside);
        mDial.setValue(mDial.start + 1);
        QTest::mouseDClick(mDial.widget, Qt::LeftButton, {}, beside);
        mDial.widget->setEnabled(false);
        QTest::mousePress(mDial.widget, Qt::LeftButton, {}, mGrip);
        QTest::mouseMove(mDial.widget, mGrip - QPoint(0, 50));
        turn(mDial.widget, 120);
        QCOMPARE(mDial.value(), mDial.start + 1);
        QCOMPARE(mChanges->count(), 0);
    }

    void wheelAndKeys_data() { addMembers(); }
    void wheelAndKeys()
    {
        build();
        QVERIFY(turn(mDial.widget, 240));
        QCOMPARE(mDial.value(), mDial.start + 2 * mDial.step);
        QCOMPARE(mChanges->count(), 1);
        turn(mDial.widget, -119);
        QCOMPARE(mDial.value(), mDial.start + 2 * mDial.step);
        turn(mDial.widget, -1);
        QCOMPARE(mDial.value(), mDial.start + mDial.step);
        QVERIFY(!turn(mDial.widget, 0));
        for (const auto& [key, value] : {std::pair{Qt::Key_Up, 2}, {Qt::Key_Right, 3}, {Qt::Key_Down, 2}, {Qt::Key_Left, 1}}) {
            QTest::keyClick(mDial.widget, key);
            QCOMPARE(mDial.value(), mDial.start + float(value) * mDial.step);
        }
        QTest::keyClick(mDial.widget, Qt::Key_PageUp);
        QCOMPARE(mDial.value(), mDial.start + mDial.step);
        mDial.setValue(mDial.max);
        mChanges->clear();
        QVERIFY(turn(mDial.widget, 120)); // at the end the turn does not go on to the page
        QTest::keyClick(mDial.widget, Qt::Key_Up);
        QCOMPARE(mChanges->count(), 0);
    }

    void scrollingPagesKeepValues_data() { addMembers(); }
    void scrollingPagesKeepValues()
    {
        build();
        QWidget page(mWindow.get());
        page.show();
        mDial.widget->clearFocus();
        const QPointF still = mDial.widget->mapToGlobal(QPointF(50, 40));
        turn(&page, -120, still); // the page scrolls, and the dial has slid under the pointer
        QVERIFY(!turn(mDial.widget, 120, still));
        QCOMPARE(mDial.value(), mDial.start);
        QVERIFY(turn(mDial.widget, 120, still + QPointF(10, 0))); // the hand has moved onto it
        turn(&page, -120, still);
        mDial.widget->setFocus();
        QVERIFY(turn(mDial.widget, 120, still));
        mDial.widget->clearFocus();
        turn(&page, -120, still);
        QTRY_VERIFY_WITH_TIMEOUT(turn(mDial.widget, 120, still), 5000);
    }

    void focusByKeyboardIsSeen_data() { addMembers(); }
    void focusByKeyboardIsSeen()
    {
        build();
        mDial.widget->clearFocus();
        const QImage without = mDial.widget->grab().toImage();
        mDial.widget->setFocus(Qt::MouseFocusReason);
        QCOMPARE(mDial.widget->grab().toImage(), without);
        mDial.widget->clearFocus();
        mDial.widget->setFocus(Qt::TabFocusReason);
        QVERIFY(mDial.widget->grab().toImage() != without);
        mDial.widget->clearFocus();
        mDial.widget->setEnabled(false);
        QVERIFY(mDial.widget->grab().toImage() != without);
    }

    void assistiveTechnologySetsAsTheUser_data() { addMembers(); }
    void assistiveTechnologySetsAsTheUser()
    {
        build();
        mWindow->setAccessibleName(u"IN 1"_s);
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(mDial.widget);
        QCOMPARE(face->text(QAccessible::Name), u"IN 1 Dial"_s);
        QCOMPARE(face->role(), QAccessible::Dial);
        QAccessibleValueInterface* value = face->valueInterface();
        QCOMPARE(value->maximumValue().toFloat(), mDial.max);
        value->setCurrentValue(double(mDial.start + mDial.step * 1.2F)); // goes to the nearest step
        QCOMPARE(mDial.value(), mDial.start + mDial.step);
        QCOMPARE(mChanges->count(), 1);
        value->setCurrentValue(u"loud"_s);
        value->setCurrentValue(NAN);
        QCOMPARE(mChanges->count(), 1);
    }

    void survivesOddSizes_data() { addMembers(); }
    void survivesOddSizes()
    {
        build();
        for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(2, 300), QSize(300, 5)}) {
            mDial.widget->resize(size);
            mDial.widget->grab();
        }
    }

    void ladderDragWaitsForItsSteps()
    {
        DialS1M6 dial;
        dial.setLadder(9, -10, -52, -90);
        dial.resize(100, 100);
        dial.setValue(-12);
        dial.show();
        QTest::mousePress(&dial, Qt::LeftButton, {}, {50, 50});
        QTest::mouseMove(&dial, {50, 55});
        QCOMPARE(dial.value(), -12.0F); // -12.5 is not on the ladder
        QTest::mouseMove(&dial, {50, 60});
        QCOMPARE(dial.value(), -13.0F);
        QTest::mouseMove(&dial, {50, 55});
        QCOMPARE(dial.value(), -13.0F);
    }

    void rangeKeepsTheValue()
    {
        DialS1M5 dial;
        dial.setMinusInfinity(true);
        dial.setRange(3, 30);
        dial.setValue(3.7F); // cut down to the minimum as it is shown
        QCOMPARE(dial.valueControl().accessibleText(), u"-∞"_s);
        dial.setValue(25);
        dial.setRange(30, 40);
        QCOMPARE(dial.value(), 25.0F);
        QCOMPARE(dial.defaultValue(), 30.0F);
        dial.setRange(5, 4);
        dial.setValue(100);
        QCOMPARE(dial.value(), 40.0F);
        dial.setKeyStep(11);
        dial.setKeyStep(0);
        QTest::keyClick(&dial, Qt::Key_Down);
        QCOMPARE(dial.value(), 39.0F);
    }

    void listMode()
    {
        DialS1M5 dial;
        dial.resize(100, 100);
        dial.show();
        dial.setMode(1);
        dial.setDefault(3);                 // nothing to choose from yet
        QTest::keyClick(&dial, Qt::Key_Up); // nor to move in
        dial.setValueList({20, 25, 31.5F, 40, 50});
        dial.setValue(30);
        QCOMPARE(dial.value(), 30.0F);
        QTest::keyClick(&dial, Qt::Key_Up); // from the nearest entry
        QCOMPARE(dial.value(), 40.0F);
        turn(&dial, -480);
        QCOMPARE(dial.value(), 20.0F);
        QTest::mousePress(&dial, Qt::LeftButton, {}, {50, 50});
        QTest::mouseMove(&dial, {50, 40});
        QCOMPARE(dial.value(), 31.5F);
        QTest::mouseMove(&dial, {50, -4000});
        QCOMPARE(dial.value(), 50.0F);
        dial.setValueList({1});
        dial.grab();
    }

    void typing()
    {
        QWidget window;
        DialS1M5 dial(&window);
        QLineEdit other(&window);
        dial.setGeometry(0, 0, 100, 100);
        dial.setRange(0, 88);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto* edit = dial.findChild<QLineEdit*>();
        QSignalSpy changes(&dial, &DialS1M5::valueChanged);
        const auto open = [&] { QTest::mouseClick(&dial, Qt::RightButton, {}, {50, 50}); };
        open();
        QVERIFY(!edit->isVisible());
        dial.setEditEnabled(true);
        dial.setEditPrecision(1);
        open();
        QVERIFY(edit->isVisible() && edit->hasFocus());
        QCOMPARE(edit->text(), u"25.0"_s);
        turn(&dial, 120);
        QTest::keyClicks(edit, u"99"_s);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(dial.value(), 88.0F);
        QVERIFY(!edit->isVisible() && dial.hasFocus());
        open();
        QTest::keyClick(edit, Qt::Key_Return); // unchanged, and told all the same, once
        QCOMPARE(changes.count(), 2);
        open();
        QTest::keyClicks(edit, u"12.5"_s);
        QTest::keyClick(edit, Qt::Key_Escape);
        QVERIFY(!edit->isVisible());
        QCOMPARE(dial.value(), 88.0F);
        open();
        QTest::keyClicks(edit, u"12.5"_s);
        other.setFocus();
        QVERIFY(!edit->isVisible() && other.hasFocus());
        QCOMPARE(dial.value(), 12.5F);
        open();
        edit->clear();
        other.setFocus();
        QVERIFY(!edit->isVisible());
        QCOMPARE(dial.value(), 12.5F);
        QCOMPARE(changes.count(), 3);
    }
};

QTEST_MAIN(TestDials)
#include "tst_dials.moc"
