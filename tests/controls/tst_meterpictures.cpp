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

    /// What is put together from copies is what painting all of it gives.
    void copiesAreThePicture()
    {
        for (const auto& [shape, ratio] : {std::pair{&kMeterS1M1, 1}, {&kMeterS1M2, 1}, {&kMeterS1M1, 2}, {&kMeterS1M2, 2}}) {
            const QSize size(93, 217);
            const MeterScene scene{shape, shape->ratios, size, QFont(u"Sans"_s, 8), false};
            const MeterLayout layout = layoutMeter(size, *shape, shape->ratios);
            const auto skin = MeterSkin::shared(scene, layout, ratio);
            for (int level = -60; level <= 0; ++level) {
                const MeterMoments moments{{level, level, level == 0}, {-60 - level, -30, level % 2 == 0}};
                QImage whole(size * ratio, QImage::Format_RGB32);
                whole.setDevicePixelRatio(ratio);
                QImage copies = whole.copy();
                QPainter wholePainter(&whole);
                paintMeter(wholePainter, scene, layout, moments);
                QPainter copiesPainter(&copies);
                for (int y = 0; y < size.height(); y += 40) // as strips of a repaint arrive
                    skin->paint(copiesPainter, QRect(0, y, size.width(), 40) & QRect(QPoint(), size), moments);
                int worst = 0;
                for (int y = 0; y < whole.height(); ++y)
                    for (int x = 0; x < whole.width(); ++x)
                        worst = std::max({worst, std::abs(qRed(whole.pixel(x, y)) - qRed(copies.pixel(x, y))),
                                          std::abs(qGreen(whole.pixel(x, y)) - qGreen(copies.pixel(x, y)))});
                QVERIFY2(worst <= 2, qPrintable(u"level %1 differs by %2"_s.arg(level).arg(worst)));
            }
        }
    }
};

QTEST_MAIN(TestMeterPictures)
#include "tst_meterpictures.moc"
