#include "controls/Accessibility.h"
#include "controls/HSliderS1M1.h"
#include "controls/slider/Balance.h"
#include "tests/controls/Hands.h"

#include <QAccessibleValueInterface>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <cmath>

using namespace Qt::StringLiterals;

class TestSlider : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<HSliderS1M1> mSlider;
    QLineEdit* edit() { return mSlider->findChild<QLineEdit*>(); }
    QPoint onTrack(double share) { return {int(std::lround(4 + share * (200 - 8))), 10}; } // of 200 by 40

    void type(const QString& text)
    {
        edit()->setFocus();
        edit()->selectAll();
        QTest::keyClicks(edit(), text);
        QTest::keyClick(edit(), Qt::Key_Return);
    }

private slots:
    void initTestCase() { quillon::installControlAccessibility(); }

    void init()
    {
        mSlider = std::make_unique<HSliderS1M1>();
        mSlider->resize(200, 40);
        mSlider->show();
        mSlider->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(mSlider.get()));
    }

    void textAndBack()
    {
        for (const auto& [value, text] :
             {std::pair{100.0F, u"C"_s}, {0.0F, u"L"_s}, {60.0F, u"L40"_s}, {101.0F, u"R1"_s}, {200.0F, u"R"_s}}) {
            mSlider->setValue(value);
            QCOMPARE(edit()->text(), text);
            QCOMPARE(quillon::balanceFromText(text, 0, 200), value);
        }
        QCOMPARE(quillon::balanceFromText(u"L100"_s, 0, 200), 0.0F);
        for (const QString& odd : {u"R150"_s, u""_s, u"x"_s, u"Lx"_s, u"12"_s})
            QCOMPARE(quillon::balanceFromText(odd, 0, 200), 200.0F);
    }

    void setterIsSilentUnlessAsked()
    {
        QSignalSpy changes(mSlider.get(), &HSliderS1M1::valueChanged);
        mSlider->setValue(20);
        mSlider->setValue(NAN);
        QCOMPARE(changes.count(), 0);
        mSlider->setValue(500, true);
        QCOMPARE(mSlider->value(), 200.0F);
        mSlider->setValue(201, true);
        QCOMPARE(changes.count(), 1);
    }

    void clickOnTrack()
    {
        for (const auto& [share, text] : {std::pair{0.03, u"L"_s}, {0.97, u"R"_s}, {0.5, u"C"_s}, {0.0625, u"L87"_s}}) {
            mSlider->setValue(150);
            QTest::mouseClick(mSlider.get(), Qt::LeftButton, {}, onTrack(share)); // the last one does not snap: 12.5 rounds up
            QCOMPARE(edit()->text(), text);
        }
    }

    void dragsBeyondTheEnds()
    {
        QSignalSpy changes(mSlider.get(), &HSliderS1M1::valueChanged);
        const QPoint grip = onTrack(0.5);
        QTest::mousePress(mSlider.get(), Qt::LeftButton, {}, grip);
        QCOMPARE(changes.count(), 0);
        QTest::mouseMove(mSlider.get(), grip + QPoint(48, 0));
        QCOMPARE(mSlider->value(), 150.0F);
        QTest::mouseMove(mSlider.get(), onTrack(0.03)); // a drag does not snap
        QCOMPARE(mSlider->value(), 6.0F);
        QTest::mouseMove(mSlider.get(), QPoint(-500, 90));
        QCOMPARE(mSlider->value(), 0.0F);
        QTest::mouseMove(mSlider.get(), QPoint(900, 90));
        QCOMPARE(mSlider->value(), 200.0F);
        QTest::mouseRelease(mSlider.get(), Qt::LeftButton, {}, grip);
        const auto count = changes.count();
        QTest::mouseMove(mSlider.get(), grip);
        QCOMPARE(changes.count(), count);
    }

    void keysWheelAndDefault()
    {
        QSignalSpy changes(mSlider.get(), &HSliderS1M1::valueChanged);
        for (const auto& [key, value] : {std::pair{Qt::Key_Right, 101.0F},
                                         {Qt::Key_Down, 102.0F},
                                         {Qt::Key_Left, 101.0F},
                                         {Qt::Key_Up, 100.0F},
                                         {Qt::Key_Left, 99.0F}}) {
            QTest::keyClick(mSlider.get(), key);
            QCOMPARE(mSlider->value(), value);
        }
        QVERIFY(turn(mSlider.get(), -120)); // toward the user is up
        QCOMPARE(mSlider->value(), 100.0F);
        turn(mSlider.get(), 240); // one step an event, however far
        QCOMPARE(mSlider->value(), 99.0F);
        turn(mSlider.get(), -60);
        QCOMPARE(mSlider->value(), 99.0F);
        turn(mSlider.get(), -60);
        QCOMPARE(mSlider->value(), 100.0F);
        mSlider->setValue(7);
        changes.clear();
        QTest::mouseDClick(mSlider.get(), Qt::LeftButton, {}, onTrack(0.8));
        QCOMPARE(mSlider->value(), 100.0F);
        QCOMPARE(changes.last().first().toFloat(), 100.0F);
    }

    void typing()
    {
        QSignalSpy changes(mSlider.get(), &HSliderS1M1::valueChanged);
        type(u"L30"_s);
        QCOMPARE(mSlider->value(), 70.0F);
        QCOMPARE(changes.count(), 1);
        QVERIFY(!edit()->hasFocus());
        type(u"R100"_s); // the last digit is not taken
        QCOMPARE(mSlider->value(), 110.0F);
        type(u"L"_s);
        QCOMPARE(mSlider->value(), 0.0F);

        edit()->setFocus();
        edit()->clear();
        mSlider->setFocus();
        QCOMPARE(edit()->text(), u"L"_s);
        edit()->setFocus();
        edit()->setText(u"R9"_s);
        QTest::keyClick(edit(), Qt::Key_Escape);
        QCOMPARE(mSlider->value(), 0.0F);
        QCOMPARE(changes.count(), 3);
    }

    void assistiveTechnologySetsAsTheUser()
    {
        mSlider->setAccessibleName(u"IN 1 Balance"_s);
        QSignalSpy changes(mSlider.get(), &HSliderS1M1::valueChanged);
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(mSlider.get());
        QCOMPARE(face->role(), QAccessible::Slider);
        face->valueInterface()->setCurrentValue(60);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(face->text(QAccessible::Value), u"L40"_s);
        mSlider->setEnabled(false);
        face->valueInterface()->setCurrentValue(10);
        QCOMPARE(mSlider->value(), 60.0F);
    }
};

QTEST_MAIN(TestSlider)
#include "tst_slider.moc"
