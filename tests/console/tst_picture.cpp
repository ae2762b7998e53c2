// The picture of the device: where its lamps are, how the light runs, and what that costs.

#include "console/RecoveryPage.h"
#include "console/picture/R47_PrivateWidget6.h"
#include "resources/Resources.h"

#include <QPaintEvent>
#include <QTest>
#include <algorithm>
#include <functional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace
{

/// Counts the steps of the light and keeps the largest area that was painted after the first one.
class Watch : public QObject
{
public:
    explicit Watch(QObject* watched) { watched->installEventFilter(this); }
    int steps = 0;
    int painted = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Timer) {
            ++steps;
        } else if (event->type() == QEvent::Paint && steps > 0) {
            int area = 0;
            for (const QRect& rect : static_cast<QPaintEvent*>(event)->region()) {
                area += rect.width() * rect.height();
            }
            painted = std::max(painted, area);
        }
        return false;
    }
};

} // namespace

class tst_picture : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { quillon::initResources(); }

    void lampsScaleWithThePicture()
    {
        R47_PrivateWidget6 picture;
        picture.resize(410, 1281); // twice as wide, three times as high
        picture.grab();
        QCOMPARE(picture.lamps().size(), 54);
        for (const auto& [lamp, x, y] :
             {std::tuple{0, 74.28, 111.46}, {35, 130.97, 202.16}, {46, 82.78, 251.77}, {53, 52.7, 402.7}}) {
            const QRectF rect = picture.lamps()[lamp];
            QVERIFY2(qAbs(rect.x() - 2 * x) < 0.01 && qAbs(rect.y() - 3 * y) < 0.01, qPrintable(QString::number(lamp)));
            QVERIFY(qAbs(rect.width() - 6.8) < 0.01 && qAbs(rect.height() - 10.2) < 0.01);
        }
        const QImage shot = picture.grab().toImage();
        const auto at = [&](int lamp) { return shot.pixelColor(picture.lamps()[lamp].center().toPoint()); };
        QCOMPARE(at(0), QColor(67, 207, 124));
        QVERIFY(at(1) != at(0));
    }

    void lightRunsWhileItIsSeen()
    {
        R47_PrivateWidget6 picture;
        picture.resize(R47_PrivateWidget6::kPictureSize);
        Watch watch(&picture);
        picture.start(1);
        QTest::qWait(20);
        QCOMPARE(watch.steps, 0);
        picture.show();
        for (const int enough : {5, 20, 40, 60}) {
            QTRY_VERIFY(watch.steps >= enough);
            const int first = watch.steps % 26;
            const int last = watch.steps % 54;
            for (int lamp = 0; lamp < 54; ++lamp) {
                QCOMPARE(picture.isLit(lamp), first <= lamp && lamp <= last);
            }
        }
        QVERIFY(watch.painted > 0 && watch.painted < picture.width() * picture.height() / 20);
        for (const auto& still : {std::function<void()>([&] { picture.hide(); }), std::function<void()>([&] {
                                      picture.show();
                                      picture.stop();
                                  })}) {
            still();
            const int steps = watch.steps;
            QTest::qWait(20);
            QCOMPARE(watch.steps, steps);
        }
    }

    void standsOnTheRecoveryPage()
    {
        RecoveryPage page;
        auto* picture = page.findChild<R47_PrivateWidget6*>();
        Watch watch(picture);
        page.resize(1100, 645);
        page.show();
        QTRY_VERIFY(watch.steps > 0);
        for (const auto* child : page.findChildren<QWidget*>()) {
            QVERIFY(child == picture || !child->geometry().intersects(picture->geometry()));
            QVERIFY(page.rect().contains(child->geometry()));
        }
    }
};

QTEST_MAIN(tst_picture)
#include "tst_picture.moc"
