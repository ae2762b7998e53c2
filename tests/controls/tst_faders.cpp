#include "controls/Accessibility.h"
#include "controls/HSliderS2M1.h"
#include "controls/VSliderS1M1.h"
#include "controls/VSliderS1M2.h"
#include "tests/controls/Hands.h"

#include <QAccessibleValueInterface>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace quillon;

/// One contract over all faders. All run from -90 to 12 dB here, the ladder with its marks at -10 and -52.
class TestFaders : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QWidget> mWindow;
    QWidget* mFader = nullptr;
    Fader* mSlider = nullptr;
    QLineEdit* mEdit = nullptr;
    std::function<float()> mValue;
    std::function<void(float)> mSetValue;
    std::unique_ptr<QSignalSpy> mChanges;
    bool mLadder = false;

    template<typename T> void take(T* fader)
    {
        if constexpr (requires { fader->setLadder(12, -10, -52, -90); })
            fader->setLadder(12, -10, -52, -90);
        else
            fader->setRange(-90, 12);
        fader->setDefault(-6);
        fader->setMinusInfinity(true);
        mFader = fader;
        mSlider = dynamic_cast<Fader*>(fader->template findChild<QSlider*>());
        mEdit = fader->template findChild<QLineEdit*>();
        mValue = [fader] { return float(fader->value()); };
        mSetValue = [fader](float v) { fader->setValue(typename T::Value(v)); };
        mChanges = std::make_unique<QSignalSpy>(fader, &T::valueChanged);
    }

    static void addMembers()
    {
        QTest::addColumn<int>("member");
        QTest::newRow("HSliderS2M1") << 0;
        QTest::newRow("VSliderS1M1") << 1;
        QTest::newRow("VSliderS1M2") << 2;
    }

    void build()
    {
        QFETCH(int, member);
        mWindow = std::make_unique<QWidget>();
        mWindow->resize(400, 400);
        mLadder = member == 2;
        if (member == 0)
            take(new HSliderS2M1(mWindow.get()));
        else if (member == 1)
            take(new VSliderS1M1(mWindow.get()));
        else
            take(new VSliderS1M2(mWindow.get()));
        mFader->setGeometry(20, 20, member == 0 ? 360 : 40, member == 0 ? 24 : 360);
        mWindow->show();
        mWindow->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(mWindow.get()));
        mSetValue(0);
    }

    /// A way of so many pixels toward louder.
    QPoint up(int pixels) const { return mSlider->orientation() == Qt::Vertical ? QPoint(3, -pixels) : QPoint(pixels, 3); }

    void type(const QString& text)
    {
        mEdit->setFocus();
        mEdit->selectAll();
        for (const QChar letter : text) {
            if (letter.unicode() < 128)
                QTest::keyClick(mEdit, letter.toLatin1());
            else
                mEdit->insert(letter); // the test library has no key for it
        }
        QTest::keyClick(mEdit, Qt::Key_Return);
    }

private slots:
    void initTestCase() { installControlAccessibility(); }

    void settersAreSilentAndSettle_data() { addMembers(); }
    void settersAreSilentAndSettle()
    {
        build();
        for (const auto& [value, whole, ladder, text] : {std::tuple{3.0F, 3.0F, 3.0F, u"+3"_s},
                                                         {500.0F, 12.0F, 12.0F, u"+12"_s},
                                                         {-500.0F, -90.0F, -90.0F, u"-∞"_s},
                                                         {-53.0F, -53.0F, -54.0F, QString()},
                                                         {-11.5F, -11.0F, -11.0F, u"-11"_s},
                                                         {-9.5F, -9.0F, -9.5F, QString()},
                                                         {0.0F, 0.0F, 0.0F, mLadder ? u"0"_s : u"-0"_s}}) {
            mSetValue(value);
            QCOMPARE(mValue(), mLadder ? ladder : whole);
            if (!text.isNull())
                QCOMPARE(mEdit->text(), text);
        }
        QCOMPARE(mChanges->count(), 0);
    }

    void keysAndWheel_data() { addMembers(); }
    void keysAndWheel()
    {
        build();
        const float step = mLadder ? 0.5F : 1;
        for (const auto& [key, steps] : {std::pair{Qt::Key_Up, 1}, {Qt::Key_Right, 2}, {Qt::Key_Down, 1}, {Qt::Key_Left, 0}}) {
            QTest::keyClick(mSlider, key);
            QCOMPARE(mValue(), float(steps) * step);
        }
        QVERIFY(turn(mSlider, 240));
        QCOMPARE(mValue(), 2 * step);
        QCOMPARE(mChanges->count(), 5);
        turn(mSlider, -119);
        QCOMPARE(mValue(), 2 * step);
        turn(mSlider, -1);
        QCOMPARE(mValue(), step);
        for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End})
            QTest::keyClick(mSlider, key);
        QCOMPARE(mValue(), step);
        mSetValue(12);
        mChanges->clear();
        QVERIFY(turn(mSlider, 120)); // at the end the turn does not go on to the page
        QTest::keyClick(mSlider, Qt::Key_Up);
        mSlider->setEnabled(false);
        turn(mSlider, -120);
        QCOMPARE(mChanges->count(), 0);
    }

    void ladderSteps()
    {
        VSliderS1M2 fader;
        fader.setLadder(12, -10, -52, -90);
        auto* slider = fader.findChild<QSlider*>();
        for (const auto& [from, key, to] : {std::tuple{-10.0F, Qt::Key_Up, -9.5F},
                                            {-10.0F, Qt::Key_Down, -11.0F},
                                            {-52.0F, Qt::Key_Up, -51.0F},
                                            {-52.0F, Qt::Key_Down, -54.0F},
                                            {-90.0F, Qt::Key_Up, -88.0F},
                                            {-90.0F, Qt::Key_Down, -90.0F}}) {
            fader.setValue(from);
            QTest::keyClick(slider, key);
            QCOMPARE(fader.value(), to);
        }
        fader.setValue(-9);
        turn(slider, -360); // the step at -9, three times
        QCOMPARE(fader.value(), -10.0F);
        fader.setLadder(0, -10, -20, -30); // another range moves neither too far nor with a signal
        QCOMPARE(fader.value(), -10.0F);
        fader.setLadder(-12, -14, -20, -30);
        QCOMPARE(fader.value(), -12.0F);
        fader.setLadder(0, 1, 2, 3);
        fader.setValue(0);
        QCOMPARE(fader.value(), -12.0F);
    }

    void dragsWhereItIsHeld_data() { addMembers(); }
    void dragsWhereItIsHeld()
    {
        build();
        const QPoint grip = mSlider->cap().center() + up(3);
        QTest::mousePress(mSlider, Qt::LeftButton, {}, grip);
        QCOMPARE(mChanges->count(), 0);
        QTest::mouseMove(mSlider, grip + up(1000) + QPoint(0, 200)); // far outside
        QCOMPARE(mValue(), 12.0F);
        for (int way = 0; way < 200; way += 7) {
            QTest::mouseMove(mSlider, grip + up(-way));
            const float value = mValue();
            QCOMPARE(value, (mLadder ? Ladder{12, -10, -52, -90}.nearest(value) : std::round(value)));
        }
        QVERIFY(mValue() < -30);
        QTest::mouseMove(mSlider, grip);
        QCOMPARE(mValue(), 0.0F);
        QTest::mouseRelease(mSlider, Qt::LeftButton, {}, grip);
        QTest::mouseMove(mSlider, grip + up(50));
        QCOMPARE(mValue(), 0.0F);
        QTest::mouseDClick(mSlider, Qt::LeftButton, {}, grip);
        QCOMPARE(mValue(), -6.0F);
        mSetValue(0);
        QTest::mouseDClick(mEdit, Qt::LeftButton);
        QCOMPARE(mValue(), 0.0F);
    }

    void grooveTakesPagesTowardThePointer_data() { addMembers(); }
    void grooveTakesPagesTowardThePointer()
    {
        build();
        for (const auto& [start, way, whole, ladder] :
             {std::tuple{0.0F, 40, 5.0F, 2.5F}, {-60.0F, 40, -55.0F, -58.0F}, {-60.0F, -40, -65.0F, -62.0F}}) {
            mSetValue(start);
            QTest::mouseClick(mSlider, Qt::LeftButton, {}, mSlider->cap().center() + up(way));
            QCOMPARE(mValue(), mLadder ? ladder : whole);
        }
        QCOMPARE(mChanges->count(), 3);
    }

    void typing_data() { addMembers(); }
    void typing()
    {
        build();
        for (const auto& [typed, value] : {std::pair{u"7"_s, 7.0F},
                                           {u"+5"_s, 5.0F},
                                           {u"-∞"_s, -90.0F},
                                           {u"-"_s, -90.0F}, // keeps the value
                                           {u"-11.5"_s, mLadder ? -11.0F : -90.0F},
                                           {u"+"_s, mLadder ? -11.0F : -90.0F},
                                           {u"95"_s, 9.0F}, // the last digit is not taken
                                           {u"-90"_s, -90.0F}}) {
            if (typed == u"-11.5"_s && !mLadder)
                continue;
            type(typed);
            QVERIFY2(mValue() == value, qPrintable(typed));
            QVERIFY(!mEdit->hasFocus() && mSlider->hasFocus());
        }
        QCOMPARE(mEdit->text(), u"-∞"_s);
        const auto count = mChanges->count();
        QCOMPARE(count, mLadder ? 6 : 5);
        for (const QString& odd : {u""_s, u"-∞"_s})
            type(odd);
        mEdit->setFocus();
        mEdit->setText(u"5"_s);
        QTest::keyClick(mEdit, Qt::Key_Escape);
        QCOMPARE(mEdit->text(), u"-∞"_s);
        mEdit->setFocus();
        mEdit->clear();
        mSlider->setFocus();
        QCOMPARE(mEdit->text(), u"-∞"_s);
        QCOMPARE(mChanges->count(), count);
    }

    void ladderFilters()
    {
        LadderFaderLaw law;
        law.setLadder({12, -10, -52, -90});
        for (const auto& [typed, left] : {std::pair{u"-11.5"_s, u"-11"_s},
                                          {u"-11."_s, u"-11"_s},
                                          {u"-9.5"_s, u"-9.5"_s},
                                          {u"9."_s, u"9."_s},
                                          {u"9.3"_s, u"9."_s},
                                          {u"13"_s, u"1"_s},
                                          {u"-91"_s, u"-9"_s},
                                          {u"-"_s, u"-"_s},
                                          {u"nan"_s, u"na"_s}})
            QCOMPARE(law.filtered(typed), left);
        QCOMPARE(law.positionOf(u"-53"_s).value(), (-54 - 12) * 2);
        QCOMPARE(law.positionOf(u"-91"_s).value(), 0); // too low to be typed, and then the top
        law.setLadder({0, -10, -89, -89});
        QCOMPARE(law.valueAt(law.settled(-89)), -89.0F);
    }

    void pagesFocusAndNames_data() { addMembers(); }
    void pagesFocusAndNames()
    {
        build();
        QWidget page(mWindow.get());
        page.show();
        mSlider->clearFocus();
        const QPointF still = mSlider->mapToGlobal(QPointF(mSlider->rect().center()));
        turn(&page, -120, still); // the page scrolls, and the fader has slid under the pointer
        QVERIFY(!turn(mSlider, 120, still));
        QCOMPARE(mValue(), 0.0F);
        const QImage without = mFader->grab().toImage();
        mFader->setFocus(Qt::TabFocusReason);
        QVERIFY(mSlider->hasFocus() && mFader->grab().toImage() != without);
        QTest::keyClick(mSlider, Qt::Key_Tab);
        QVERIFY(mEdit->hasFocus());

        mWindow->setAccessibleName(u"MIX 1"_s);
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(mSlider);
        QCOMPARE(face->text(QAccessible::Name), u"MIX 1 Fader"_s);
        QCOMPARE(face->role(), QAccessible::Slider);
        QCOMPARE(face->valueInterface()->minimumValue().toFloat(), -90.0F);
        face->valueInterface()->setCurrentValue(-53);
        QCOMPARE(mValue(), mLadder ? -54.0F : -53.0F);
        QCOMPARE(mChanges->count(), 1);
        QCOMPARE(face->text(QAccessible::Value), mLadder ? u"-54"_s : u"-53"_s);
    }

    void paintsTheCapAlone_data() { addMembers(); }
    void paintsTheCapAlone()
    {
        build();
        PaintCount paints;
        mSlider->installEventFilter(&paints);
        QCoreApplication::processEvents();
        paints.count = 0;
        paints.region = {};
        mSetValue(0);
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 0);
        const QRect from = mSlider->cap();
        mSetValue(-40);
        QTRY_COMPARE(paints.count, 1);
        QCOMPARE(paints.region.boundingRect(), from.united(mSlider->cap()));
        for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(2, 300), QSize(300, 5)}) {
            mFader->resize(size);
            mFader->grab();
            mSetValue(3);
        }
    }
};

QTEST_MAIN(TestFaders)
#include "tst_faders.moc"
