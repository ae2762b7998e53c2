#include "controls/Accessibility.h"
#include "controls/VolumeMeterS1M1.h"
#include "controls/VolumeMeterS1M2.h"
#include "controls/VolumeMeterS1M3.h"
#include "controls/VolumeMeterS1M4.h"
#include "controls/VolumeMeterS1M5.h"
#include "controls/VolumeMeterS1M6.h"
#include "controls/VolumeMeterS1M7.h"
#include "controls/VolumeMeterS1M8.h"
#include "controls/VolumeMeterS2M1.h"
#include "tests/controls/Hands.h"

#include <QAccessibleValueInterface>
#include <QBackingStore>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <functional>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

/// One bar of a member, by its public face and named slots; the contract below runs over all of them.
struct Bar {
    QByteArray name;
    int floorDb;
    bool number;
    int lane;
    std::function<QWidget*(QWidget*)> make;
    std::function<void(QWidget*, int)> feed;
    QByteArray clipSlot;
    QByteArray decaySlot;
};

struct Traits {
    int floorDb = -60;
    bool number = false;
};

template<class Meter, class Feed>
Bar bar(const char* name, Traits traits, int lane, Feed feed, const QByteArray& lamp, const QByteArray& side)
{
    return {name + lamp,
            traits.floorDb,
            traits.number,
            lane,
            [](QWidget* parent) { return new Meter(parent); },
            [feed](QWidget* widget, int value) { std::invoke(feed, *static_cast<Meter*>(widget), value); },
            "in_timerClip" + lamp + "_timeout",
            "in_mTimerMeter" + side + "_timeout"};
}

template<class Meter> void addMono(std::vector<Bar>& bars, const char* name, Traits traits)
{
    bars.push_back(bar<Meter>(name, traits, 0, &Meter::setVolumeMeter, "", ""));
}

template<class Meter> void addPair(std::vector<Bar>& bars, const char* name, Traits traits)
{
    bars.push_back(bar<Meter>(name, traits, 0, &Meter::setVolumeMeterLeft, "Left", "Left"));
    bars.push_back(bar<Meter>(name, traits, 1, &Meter::setVolumeMeterRight, "Right", "Right"));
}

template<class Meter> void addGained(std::vector<Bar>& bars, const char* name, Traits traits)
{
    bars.push_back(bar<Meter>(name, traits, 0, &Meter::setVolumeMeterOrigin, "Origin", ""));
    bars.push_back(bar<Meter>(name, traits, 1, &Meter::setVolumeMeterGained, "Gained", ""));
}

std::vector<Bar> allBars()
{
    std::vector<Bar> bars;
    addMono<VolumeMeterS1M1>(bars, "S1M1", {.number = true});
    addPair<VolumeMeterS1M2>(bars, "S1M2", {.number = true});
    const Traits gained{.floorDb = -90};
    const auto left = [](VolumeMeterS1M3& meter, int value) { meter.setVolumeMeterLeft(value, 0); };
    const auto right = [](VolumeMeterS1M3& meter, int value) { meter.setVolumeMeterRight(value, 0); };
    bars.push_back(bar<VolumeMeterS1M3>("S1M3", gained, 0, left, "LeftOrigin", "Left"));
    bars.push_back(bar<VolumeMeterS1M3>("S1M3", gained, 1, left, "LeftGained", "Left"));
    bars.push_back(bar<VolumeMeterS1M3>("S1M3", gained, 2, right, "RightOrigin", "Right"));
    bars.push_back(bar<VolumeMeterS1M3>("S1M3", gained, 3, right, "RightGained", "Right"));
    addGained<VolumeMeterS1M4>(bars, "S1M4", gained);
    addGained<VolumeMeterS1M5>(bars, "S1M5", gained);
    addMono<VolumeMeterS1M6>(bars, "S1M6", {.number = true});
    addPair<VolumeMeterS1M7>(bars, "S1M7", {.floorDb = -90});
    addPair<VolumeMeterS1M8>(bars, "S1M8", {});
    addMono<VolumeMeterS2M1>(bars, "S2M1", {});
    return bars;
}

MeterView& viewOf(QWidget* meter)
{
    return static_cast<MeterView&>(dynamic_cast<ValueControlHost&>(*meter).valueControl());
}

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
    const std::vector<Bar> mBars = allBars();
    std::unique_ptr<QWidget> mWindow;
    QWidget* mMeter = nullptr;
    const Bar* mBar = nullptr;

    void addBars()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(mBars.size()); ++i)
            QTest::newRow(mBars[size_t(i)].name.constData()) << i;
    }

    /// A meter in a window, shown and painted.
    void build()
    {
        QFETCH(int, index);
        mBar = &mBars[size_t(index)];
        mWindow = std::make_unique<QWidget>();
        mWindow->resize(270, 260);
        mMeter = mBar->make(mWindow.get());
        mMeter->setGeometry(10, 10, across() ? 240 : 90, across() ? 90 : 240);
        mWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(mWindow.get()));
        QCoreApplication::processEvents();
    }

    /// The pixels that the window shows.
    QImage& shown() const { return dynamic_cast<QImage&>(*mWindow->backingStore()->paintDevice()); }
    void compareWithFresh(int value) const
    {
        const QImage now = shown().convertToFormat(QImage::Format_RGB32);
        const QImage fresh = mWindow->grab().toImage().convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < now.height(); ++y)
            for (int x = 0; x < now.width(); ++x)
                QVERIFY2(std::abs(qRed(now.pixel(x, y)) - qRed(fresh.pixel(x, y))) <= 2,
                         qPrintable(u"%1 at %2, %3"_s.arg(value).arg(x).arg(y)));
    }

    void feed(int value, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            mBar->feed(mMeter, value);
    }
    bool across() const { return view().layout().orientation == Qt::Horizontal; }
    MeterView& view() const { return viewOf(mMeter); }
    const MeterChannel& channel() const { return view().channel(mBar->lane); }
    const MeterLane& place() const { return view().layout().lanes[mBar->lane]; }
    void call(const QByteArray& slot) { QVERIFY(QMetaObject::invokeMethod(mMeter, slot.constData())); }
    int side() const { return mBar->decaySlot.contains("Right") ? 1 : 0; }

private slots:
    void risesAtOnceFallsByFour_data() { addBars(); }
    void risesAtOnceFallsByFour()
    {
        build();
        QCOMPARE(channel().level(), mBar->floorDb);
        feed(-30);
        QCOMPARE(channel().level(), -3);
        feed(-400);
        QCOMPARE(channel().level(), -7);
        feed(-400);
        QCOMPARE(channel().level(), -11);
        QVERIFY(!view().isDecaying(side())); // it stays where the last value left it
        if (mBar->number) {
            QCOMPARE(channel().hold(), -3);
            QTRY_COMPARE_WITH_TIMEOUT(channel().hold(), -11, 3000);
            feed(-400);
            QCOMPARE(channel().hold(), mBar->name == "S1M6" ? -11 : -15); // of one member only the timer lowers the number
            feed(-110);
        }
        feed(-110);
        QCOMPARE(channel().level(), -11);
        feed(-120); // a fall of 1 is a step of 4 too
        QCOMPARE(channel().level(), -15);
        feed(std::numeric_limits<int>::min(), 30);
        QCOMPARE(channel().level(), mBar->floorDb);
    }

    void clipLightsLamp_data() { addBars(); }
    void clipLightsLamp()
    {
        build();
        feed(0);
        QVERIFY(!channel().clip());
        feed(1);
        QVERIFY(channel().clip());
        QCOMPARE(channel().level(), 0);
        const QPoint lamp = place().lamp.center();
        QVERIFY(at(picture(mMeter, 1), lamp).red() > 200);

        QTest::mouseDClick(mMeter, Qt::LeftButton, {}, place().bar.center());
        QTest::mouseDClick(mMeter, Qt::RightButton, {}, lamp);
        QVERIFY(channel().clip());
        QTest::mouseDClick(mMeter, Qt::LeftButton, {}, lamp);
        QVERIFY(!channel().clip());
        QCOMPARE(at(picture(mMeter, 1), lamp), kOff);

        feed(1);
        QTimer& timer = view().clipTimer(mBar->lane);
        timer.start(900);
        feed(1); // starts the lamp anew
        QVERIFY(timer.isSingleShot() && timer.remainingTime() > 1000);
        call(mBar->clipSlot);
        QVERIFY(!channel().clip());
    }

    void decayStopsAtFloorAndByFeed_data() { addBars(); }
    void decayStopsAtFloorAndByFeed()
    {
        build();
        QCOMPARE(view().decayMs(side()), 55);
        feed((mBar->floorDb + 10) * 10);
        view().startDecay(side());
        feed(2); // no value, so it stops nothing
        QVERIFY(view().isDecaying(side()));
        feed((mBar->floorDb + 10) * 10);
        QVERIFY(!view().isDecaying(side()));
        view().startDecay(side());
        for (const int above : {6, 2, 0}) {
            call(mBar->decaySlot);
            QCOMPARE(channel().level(), mBar->floorDb + above);
            QVERIFY(view().isDecaying(side()));
        }
        call(mBar->decaySlot);
        QVERIFY(!view().isDecaying(side()));
    }

    void barFollowsLevel_data() { addBars(); }
    void barFollowsLevel()
    {
        build();
        const QRect bar = place().bar;
        const QPointF middle = QRectF(bar).center();
        QVERIFY(QRect(QPoint(), mMeter->size()).contains(bar | place().lamp | view().layout().scale));
        QCOMPARE(at(picture(mMeter, 1), across() ? QPointF(bar.x() + 2.0, middle.y()) : QPointF(middle.x(), bar.bottom() - 2.0)),
                 kOff); // at the floor: the track alone
        for (const int db : {-55, -37, -20, -6, -1, 0}) {
            feed(0);
            feed(-900, 30);
            feed(db * 10);
            const double end = across() ? bar.x() + std::round((db + 60) * bar.width() / 60.0)
                                        : bar.y() + int(float(-db) * float(bar.height() / double(-mBar->floorDb)));
            for (const double ratio : {1.0, 2.0, 1.5}) {
                const QImage image = picture(mMeter, ratio);
                const auto beyond = [&](double pixels) { // the end of the bar
                    return at(image, across() ? QPointF(end + pixels, middle.y()) : QPointF(middle.x(), end - pixels));
                };
                if (db < 0)
                    QCOMPARE(beyond(2), kOff);
                QVERIFY2(beyond(-3) != kOff, qPrintable(u"%1 dB at %2"_s.arg(db).arg(ratio)));
            }
        }
    }

    /// A gain reaches the second bar only, which may clip by it; the pair runs down together, and the other side stays.
    void gainAndDecay()
    {
        VolumeMeterS1M4 mono;
        mono.setVolumeMeter(-50, 6);
        QCOMPARE(viewOf(&mono).accessibleText(), u"-5 dB, 0 dB clip"_s);
        VolumeMeterS1M3 stereo;
        stereo.setVolumeMeterLeft(-850, 60);
        stereo.setVolumeMeterRight(-100, -90); // muted
        QCOMPARE(viewOf(&stereo).accessibleText(), u"-85 dB, -25 dB, -10 dB, -90 dB"_s);
        stereo.startDecayLeft();
        QTRY_COMPARE_WITH_TIMEOUT(viewOf(&stereo).accessibleText(), u"-90 dB, -90 dB, -10 dB, -90 dB"_s, 5000);
        QTRY_VERIFY(!viewOf(&stereo).isDecaying(0));
    }

    /// Hidden parts keep their places free, and a hidden lamp is not there to be clicked.
    void hidesParts()
    {
        VolumeMeterS1M5 meter;
        meter.resize(90, 240);
        meter.setVolumeMeter(1, 0);
        const auto colours = [&] {
            QSet<QRgb> found;
            const QImage image = picture(&meter, 1);
            const MeterLane& gained = viewOf(&meter).layout().lanes[1];
            for (int y = 0; y < image.height(); ++y)
                for (int x = gained.bar.left(); x <= gained.bar.right(); ++x)
                    found.insert(image.pixel(x, y));
            return found.size();
        };
        QVERIFY(colours() > 5);
        meter.setGainedHidden(true);
        QCOMPARE(colours(), 1);
        QTest::mouseDClick(&meter, Qt::LeftButton, {}, viewOf(&meter).layout().lanes[1].lamp.center());
        QVERIFY(viewOf(&meter).channel(1).clip());
        const QImage before = picture(&meter, 1);
        meter.setScaleLinesHidden(true);
        const QImage noLines = picture(&meter, 1);
        meter.setScaleLabelsHidden(true);
        const QImage noScale = picture(&meter, 1);
        QVERIFY(before != noLines && noLines != noScale);
    }

    void numberTellsByColour()
    {
        VolumeMeterS1M1 meter;
        meter.resize(180, 480);
        for (const auto& [db, color] :
             {std::pair{-9, QColor(161, 161, 161)}, {-8, QColor(186, 113, 68)}, {0, QColor(246, 72, 71)}}) {
            meter.setVolumeMeter(db * 10);
            const QImage image = picture(&meter, 2);
            const QRect row = viewOf(&meter).layout().lanes[0].text;
            bool found = false;
            for (int y = row.y() * 2; y < row.bottom() * 2; ++y)
                for (int x = row.x() * 2; x < row.right() * 2; ++x)
                    found = found || image.pixelColor(x, y) == color;
            QVERIFY2(found, qPrintable(QString::number(db)));
        }
    }

    void repaintsOnlyWhatChanged_data() { addBars(); }
    void repaintsOnlyWhatChanged()
    {
        build();
        feed(-100);
        QCoreApplication::processEvents();
        const QColor mark(255, 0, 255);
        const auto painted = [&] { // what is written over the mark in the window
            QImage& window = shown();
            window.fill(mark);
            QCoreApplication::processEvents();
            QRect area;
            for (int y = 0; y < window.height(); ++y)
                for (int x = 0; x < window.width(); ++x)
                    if (window.pixelColor(x, y) != mark)
                        area |= QRect(x, y, 1, 1);
            return area;
        };
        for (const int value : {-100, 2, 10, std::numeric_limits<int>::max()}) // the same again, and what is no level
            feed(value);
        QCOMPARE(painted(), QRect());
        QCOMPARE(channel().level(), -10);
        QVERIFY(!channel().clip());
        feed(-300); // the number stays on its peak
        const QRect area = painted().translated(-mMeter->pos());
        QRect bars; // some feeds are of a pair
        for (const MeterLane& lane : view().layout().lanes)
            bars |= lane.bar;
        QVERIFY(!area.isEmpty() && bars.contains(area));
        QVERIFY(across() ? area.width() < place().bar.width() / 2 : area.height() <= place().bar.height() / 2);
        mWindow->hide();
        feed(0);
        QCOMPARE(painted(), QRect());
    }

    /// After any walk of levels, what the strips left in the window is what a fresh painting gives.
    void stripsLeaveNothingBehind_data() { addBars(); }
    void stripsLeaveNothingBehind()
    {
        build();
        for (const int value : {-100, -450, -590, -20, 1, -300, -300, -600, -10}) {
            feed(value);
            QCoreApplication::processEvents();
            compareWithFresh(value);
        }
        feed(-500, 2);
        QCoreApplication::sendPostedEvents(); // all that a loop of the window system's own may do for long
        compareWithFresh(-500);
    }

    /// A meter that is not plainly on top is painted with all that lies over it, and stays within what shows it.
    void paintsUnderWhatCovers_data()
    {
        using Cover = std::function<void(QWidget & field, QWidget & strip, QWidget & meter)>;
        const auto lay = [](QWidget& parent) {
            auto* glass = new QLabel(u"over"_s, &parent);
            glass->setGeometry(0, 50, 200, 60);
            glass->show();
        };
        QTest::addColumn<Cover>("cover");
        QTest::addColumn<bool>("plain");
        QTest::newRow("on top") << Cover([](QWidget&, QWidget&, QWidget&) {}) << true;
        QTest::newRow("scrolled") << Cover([](QWidget&, QWidget& strip, QWidget&) { strip.move(-20, -120); }) << true;
        QTest::newRow("a neighbour") << Cover([](QWidget&, QWidget&, QWidget& meter) { meter.lower(); }) << true;
        QTest::newRow("under a sibling") << Cover([=](QWidget&, QWidget& strip, QWidget&) { lay(strip); }) << false;
        QTest::newRow("under the strip's sibling") << Cover([=](QWidget& field, QWidget&, QWidget&) { lay(field); }) << false;
        QTest::newRow("under the field's sibling")
            << Cover([=](QWidget& field, QWidget&, QWidget&) { lay(*field.window()); }) << false;
        QTest::newRow("disabled") << Cover([](QWidget&, QWidget& strip, QWidget&) { strip.setEnabled(false); }) << false;
        QTest::newRow("masked") << Cover([](QWidget&, QWidget& strip, QWidget&) { strip.setMask(QRegion(0, 0, 200, 90)); })
                                << false;
    }
    void paintsUnderWhatCovers()
    {
        QFETCH(const std::function<void(QWidget&, QWidget&, QWidget&)>, cover);
        QFETCH(const bool, plain);
        mWindow = std::make_unique<QWidget>();
        mWindow->resize(220, 260);
        QWidget field(mWindow.get());
        field.setGeometry(20, 20, 150, 200);
        QWidget strip(&field);
        strip.setGeometry(0, 0, 140, 300);
        QWidget neighbour(&strip);
        neighbour.setGeometry(100, 0, 40, 300);
        VolumeMeterS1M2 meter(&strip);
        meter.setGeometry(10, 10, 90, 240);
        mMeter = &meter;
        mWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(mWindow.get()));
        cover(field, strip, meter);
        QCoreApplication::processEvents();
        PaintCount paints;
        meter.installEventFilter(&paints);
        for (const int value : {-100, -450, 1, -300, -20}) {
            meter.setVolumeMeterLeft(value);
            meter.setVolumeMeterRight(-600);
            QCoreApplication::processEvents();
            QCOMPARE(paints.count == 0, plain);
            compareWithFresh(value);
            paints.count = 0; // the picture to compare with counts as well
        }
        auto* gone = new VolumeMeterS1M1(mWindow.get());
        gone->show();
        gone->setVolumeMeter(-10);
        delete gone; // with its painting still booked
        QCoreApplication::processEvents();
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
        VolumeMeterS1M6 equalizer; // with the shares of a meter without a number, and none for it
        equalizer.resize(60, 240);
        equalizer.setWidthRatio(15, 18, 35);
        equalizer.setHeightRatio(1, 1, 92, 2);
        const MeterLayout& layout = viewOf(&equalizer).layout();
        QCOMPARE(layout.lanes[0].bar, QRect(10, 10, 10, 220));
        QCOMPARE(layout.scale, QRect(29, 0, 21, 240));
        QVERIFY(layout.lanes[0].text.isEmpty());
    }

    void tellsAssistiveTechnology()
    {
        installControlAccessibility();
        QWidget strip;
        strip.setAccessibleName(u"AUX"_s);
        VolumeMeterS1M2 meter(&strip);
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&meter);
        QCOMPARE(face->role(), QAccessible::ProgressBar);
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
