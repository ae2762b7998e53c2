#include "controls/meter/MeterChannel.h"
#include "controls/meter/MeterSkin.h"

#include <QImage>
#include <QPainter>
#include <QTest>
#include <limits>

using namespace Qt::StringLiterals;
using namespace quillon;

class TestMeterPictures : public QObject
{
    Q_OBJECT

private slots:
    void decodesDownward()
    {
        for (const auto& [tenths, db] : {std::pair{-123, -13},
                                         {-120, -12},
                                         {-1, -1},
                                         {0, 0},
                                         {-600, -60},
                                         {-591, -60},
                                         {std::numeric_limits<int>::min(), -60}}) {
            const auto reading = decodeMeter(tenths, -60);
            QVERIFY(reading && !reading->clipped);
            QCOMPARE(reading->db, db);
        }
    }

    void gainIsAddedBeforeTheLimits()
    {
        struct Row {
            int tenths, gain, origin;
            bool originClips;
            int gained;
            bool gainedClips;
        };
        constexpr int kLeast = std::numeric_limits<int>::min();
        for (const Row& row : {Row{-123, 3, -13, false, -10, false}, Row{1, 0, 0, true, 0, true}, Row{1, -1, 0, true, 0, false},
                               Row{-10, 1, -1, false, 0, false}, Row{-10, 2, -1, false, 0, true}, Row{0, -90, 0, false, -90, false},
                               Row{-1200, 60, -90, false, -60, false}, Row{kLeast, kLeast, -90, false, -90, false},
                               Row{0, std::numeric_limits<int>::max(), 0, false, 0, true}}) {
            const auto reading = decodeGained(row.tenths, row.gain, -90);
            QVERIFY(reading);
            QCOMPARE(reading->origin.db, row.origin);
            QCOMPARE(reading->origin.clipped, row.originClips);
            QCOMPARE(reading->gained.db, row.gained);
            QCOMPARE(reading->gained.clipped, row.gainedClips);
        }
        QVERIFY(!decodeGained(2, -50, -90));
    }

    /// What is put together from copies is what painting all of it gives.
    void copiesAreThePicture()
    {
        for (const MeterShape* shape : {&kMeterS1M1, &kMeterS1M2, &kMeterS1M3, &kMeterS1M4, &kMeterS1M5, &kMeterS1M6, &kMeterS1M7,
                                        &kMeterS1M8, &kMeterS2M1}) {
            const QSize size = shape->orientation == Qt::Vertical ? QSize(93, 217) : QSize(217, 63);
            const MeterLayout layout = layoutMeter(size, *shape, shape->ratios);
            const MeterScene scene{shape, shape->ratios, size, QFont(u"Sans"_s, 8)};
            for (const int ratio : {1, 2}) {
                const auto skin = MeterSkin::shared(scene, layout, ratio);
                for (int level = shape->floorDb; level <= 0; level += ratio)
                    compare(scene, layout, *skin, ratio, level);
            }
        }
    }

private:
    static void compare(const MeterScene& scene, const MeterLayout& layout, MeterSkin& skin, int ratio, int level)
    {
        const int floor = layout.floorDb;
        const MeterMoments moments{
            {level, level, level == 0}, {floor - level, floor / 2, level % 2 == 0}, {level, 0, true}, {-9, 0, false}};
        QImage whole(scene.size * ratio, QImage::Format_RGB32);
        whole.setDevicePixelRatio(ratio);
        QImage copies = whole.copy();
        QPainter painter(&whole);
        paintMeter(painter, scene, layout, moments);
        const auto surface = MeterSurface::of(copies, {});
        QVERIFY(surface);
        for (int y = 0; y < scene.size.height() + 40; y += 40) // as strips of a repaint arrive; the last reaches too far
            skin.paint(*surface, QRect(0, y, scene.size.width(), 40), moments);
        int worst = 0;
        for (int y = 0; y < whole.height(); ++y)
            for (int x = 0; x < whole.width(); ++x)
                worst = std::max({worst, std::abs(qRed(whole.pixel(x, y)) - qRed(copies.pixel(x, y))),
                                  std::abs(qGreen(whole.pixel(x, y)) - qGreen(copies.pixel(x, y)))});
        QVERIFY2(worst <= 4, qPrintable(u"level %1 at ratio %2 differs by %3"_s.arg(level).arg(ratio).arg(worst)));
    }
};

QTEST_MAIN(TestMeterPictures)
#include "tst_meterpictures.moc"
