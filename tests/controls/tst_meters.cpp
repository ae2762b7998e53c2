#include "controls/Accessibility.h"
#include "controls/VolumeMeterS1M1.h"
#include "controls/VolumeMeterS1M2.h"
#include "tests/controls/Hands.h"

#include <QAccessibleValueInterface>
#include <QImage>
#include <QTest>
#include <functional>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

/// One fed side of a member, by its public face and named slots; the contract below runs over all of them.
struct Side {
    QWidget* meter;
    int lane;
    std::function<void(int)> feed;
    QByteArray endClip;
    QByteArray decay;

    void call(const QByteArray& slot) const { QVERIFY(QMetaObject::invokeMethod(meter, slot.constData())); }
    const MeterView& view() const { return static_cast<MeterView&>(dynamic_cast<ValueControlHost*>(meter)->valueControl()); }
    const MeterChannel& channel() const { return view().channel(lane); }
    const MeterLane& place() const { return view().layout().lanes[lane]; }
};

QImage picture(QWidget* widget, double ratio)
{
    QImage image((QSizeF(widget->size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    widget->render(&image);
    return image;
}

QColor at(const QImage& image, QPointF point)
{
    return image.pixelColor((point * image.devicePixelRatio()).toPoint());
}

const QColor kOff(60, 60, 60);

} // namespace

class TestMeters : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QWidget> mWindow;
    Side mSide;

    void addSides()
    {
        QTest::addColumn<int>("member");
        QTest::newRow("S1M1") << 0;
        QTest::newRow("S1M2 left") << 1;
        QTest::newRow("S1M2 right") << 2;
    }

    /// A meter in a window, shown and painted.
    void build()
    {
        QFETCH(int, member);
        mWindow = std::make_unique<QWidget>();
        mWindow->resize(120, 260);
        if (member == 0) {
            auto* meter = new VolumeMeterS1M1(mWindow.get());
            mSide = {meter, 0, [meter](int v) { meter->setVolumeMeter(v); }, "in_timerClip_timeout", "in_mTimerMeter_timeout"};
        } else {
            auto* meter = new VolumeMeterS1M2(mWindow.get());
            const bool left = member == 1;
            const QByteArray side = left ? "Left" : "Right";
            mSide = {meter, left ? 0 : 1,
                     [meter, left](int v) { left ? meter->setVolumeMeterLeft(v) : meter->setVolumeMeterRight(v); },
                     "in_timerClip" + side + "_timeout", "in_mTimerMeter" + side + "_timeout"};
        }
        mSide.meter->setGeometry(10, 10, 90, 240);
        mWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(mWindow.get()));
        QCoreApplication::processEvents();
    }

private slots:
    void risesAtOnceFallsByFour_data() { addSides(); }
    void risesAtOnceFallsByFour()
    {
        build();
        mSide.feed(-30);
        QCOMPARE(mSide.channel().level(), -3);
        QCOMPARE(mSide.channel().hold(), -3);
        mSide.feed(-400);
        QCOMPARE(mSide.channel().level(), -7);
        mSide.feed(-400);
        QCOMPARE(mSide.channel().level(), -11);
        QCOMPARE(mSide.channel().hold(), -3);
        QTRY_COMPARE_WITH_TIMEOUT(mSide.channel().hold(), -11, 3000);
        mSide.feed(-110);
        QCOMPARE(mSide.channel().level(), -11);
        mSide.feed(-120); // a fall of 1 is a step of 4 too
        QCOMPARE(mSide.channel().level(), -15);
        for (int i = 0; i < 20; ++i)
            mSide.feed(-5000);
        QCOMPARE(mSide.channel().level(), -60);
    }

    void clipLightsLamp_data() { addSides(); }
    void clipLightsLamp()
    {
        build();
        mSide.feed(0);
        QVERIFY(!mSide.channel().clip());
        mSide.feed(1);
        QVERIFY(mSide.channel().clip());
        QCOMPARE(mSide.channel().level(), 0);
        const QPoint lamp = mSide.place().lamp.center();
        QVERIFY(at(picture(mSide.meter, 1), lamp).red() > 200);

        QTest::mouseDClick(mSide.meter, Qt::LeftButton, {}, QPoint(1, 1));
        QTest::mouseDClick(mSide.meter, Qt::RightButton, {}, lamp);
        QVERIFY(mSide.channel().clip());
        QTest::mouseDClick(mSide.meter, Qt::LeftButton, {}, lamp);
        QVERIFY(!mSide.channel().clip());
        QCOMPARE(at(picture(mSide.meter, 1), lamp), kOff);

        mSide.feed(1);
        QTimer& timer = const_cast<MeterView&>(mSide.view()).clipTimer(mSide.lane);
        timer.start(900);
        mSide.feed(1); // starts the lamp anew
        QVERIFY(timer.isSingleShot() && timer.remainingTime() > 1000);
        mSide.call(mSide.endClip);
        QVERIFY(!mSide.channel().clip());
    }

    void decayStopsAtFloorAndByFeed_data() { addSides(); }
    void decayStopsAtFloorAndByFeed()
    {
        build();
        QTimer& timer = const_cast<MeterView&>(mSide.view()).decayTimer(mSide.lane);
        mSide.feed(-500);
        timer.start();
        mSide.feed(-500);
        QVERIFY(!timer.isActive());
        timer.start();
        for (const int level : {-54, -58, -60}) {
            mSide.call(mSide.decay);
            QCOMPARE(mSide.channel().level(), level);
            QVERIFY(timer.isActive());
        }
        mSide.call(mSide.decay);
        QVERIFY(!timer.isActive());
    }

    void barHeightFollowsLevel_data() { addSides(); }
    void barHeightFollowsLevel()
    {
        build();
        const QRect bar = mSide.place().bar;
        const double x = bar.center().x() + 0.5;
        QCOMPARE(at(picture(mSide.meter, 1), {x, bar.bottom() - 2.0}), kOff); // at the floor: the track alone
        for (const int db : {-59, -37, -20, -6, -1, 0}) {
            mSide.feed(0);
            mSide.meter->setProperty("db", db);
            for (int i = 0; i < 20; ++i)
                mSide.feed(-600);
            mSide.feed(db * 10);
            const double top = bar.y() + int(float(-db) * float(bar.height() / 60.0));
            for (const double ratio : {1.0, 2.0, 1.5}) {
                const QImage image = picture(mSide.meter, ratio);
                if (db < 0)
                    QCOMPARE(at(image, {x, top - 2.0}), kOff);
                QVERIFY2(at(image, {x, top + 3.0}) != kOff, qPrintable(u"%1 dB at %2"_s.arg(db).arg(ratio)));
            }
        }
    }

    void numberTellsByColour()
    {
        VolumeMeterS1M1 meter;
        meter.resize(180, 480);
        for (const auto& [db, color] :
             {std::pair{-9, QColor(161, 161, 161)}, {-8, QColor(186, 113, 68)}, {0, QColor(246, 72, 71)}}) {
            meter.setVolumeMeter(db * 10);
            const QImage image = picture(&meter, 2);
            const QRect row = static_cast<MeterView&>(meter.valueControl()).layout().lanes[0].text;
            bool found = false;
            for (int y = row.y() * 2; y < row.bottom() * 2; ++y)
                for (int x = row.x() * 2; x < row.right() * 2; ++x)
                    found = found || image.pixelColor(x, y) == color;
            QVERIFY2(found, qPrintable(QString::number(db)));
        }
    }

    void repaintsOnlyWhatChanged_data() { addSides(); }
    void repaintsOnlyWhatChanged()
    {
        build();
        mSide.feed(-100);
        QCoreApplication::processEvents();
        PaintCount paints;
        mSide.meter->installEventFilter(&paints);
        for (const int value : {-100, 2, 10, std::numeric_limits<int>::max()}) // the same again, and what is no level
            mSide.feed(value);
        QCoreApplication::processEvents();
        QCOMPARE(mSide.channel().level(), -10);
        QVERIFY(!mSide.channel().clip());
        QCOMPARE(paints.count, 0);
        mSide.feed(-300); // the number stays on its peak
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 1);
        QVERIFY(mSide.place().bar.contains(paints.region.boundingRect()));
        QVERIFY(paints.region.boundingRect().height() < mSide.place().bar.height() / 2);
    }

    /// After any walk of levels, what the strips left on the screen is what a fresh painting gives.
    void stripsLeaveNothingBehind_data() { addSides(); }
    void stripsLeaveNothingBehind()
    {
        build();
        for (const int value : {-100, -450, -590, -20, 1, -300, -300, -600, -10}) {
            mSide.feed(value);
            QCoreApplication::processEvents();
        }
        const QImage screen = mWindow->grab(QRect(QPoint(), mWindow->size())).toImage();
        const QImage shown = mWindow->screen()->grabWindow(mWindow->winId()).toImage().convertToFormat(screen.format());
        if (shown.isNull())
            QSKIP("the platform cannot read its screen back");
        const QRect area = mSide.meter->geometry();
        QCOMPARE(shown.copy(area), screen.copy(area));
    }

    void survivesOddSizes()
    {
        VolumeMeterS1M2 meter;
        meter.setVolumeMeterLeft(1);
        for (const QSize size : {QSize(1, 1), QSize(3, 200), QSize(200, 3)}) {
            meter.resize(size);
            picture(&meter, 1);
        }
        meter.setWidthRatio(-5, 0, 1000, 0);
        meter.resize(50, 50);
        picture(&meter, 1);
    }

    void tellsAssistiveTechnology()
    {
        installControlAccessibility();
        QWidget strip;
        strip.setAccessibleName(u"AUX"_s);
        VolumeMeterS1M2 meter(&strip);
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&meter);
        QCOMPARE(face->text(QAccessible::Name), u"AUX Level"_s);
        meter.setAccessibleName(u"AUX in"_s);
        QCOMPARE(face->text(QAccessible::Name), u"AUX in"_s);
        meter.setVolumeMeterLeft(-200);
        meter.setVolumeMeterRight(1);
        QCOMPARE(face->text(QAccessible::Value), u"-20 dB, 0 dB clip"_s);
        QVERIFY(face->valueInterface());
        QCOMPARE(face->valueInterface()->currentValue().toDouble(), 0.0);
        QCOMPARE(face->valueInterface()->minimumValue().toDouble(), -60.0);
        face->valueInterface()->setCurrentValue(-5);
        QCOMPARE(meter.valueControl().accessibleValue(), 0.0); // an indicator stays with what it was fed
    }
};

QTEST_MAIN(TestMeters)
#include "tst_meters.moc"
