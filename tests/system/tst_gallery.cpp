// What holds for every control of the program, in its place on a page of the gallery.

#include "app/GlobalFont.h"
#include "gallery/GalleryPage.h"
#include "resources/Resources.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <memory>

using namespace quillon::gallery;

class TestGallery : public QObject
{
    Q_OBJECT

private:
    void show(const Family& family)
    {
        mArea = std::make_unique<QScrollArea>();
        mPage = new GalleryPage(family, {QStringLiteral("English"), 1});
        mArea->setWidget(mPage);
        mArea->resize(1240, 400);
        mArea->show();
        mArea->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(mArea.get()));
        mArea->setFocus();
        mPage->setMinimumHeight(mPage->height() + 1000); // every row can go to the top
        QTRY_VERIFY(bar()->maximum() > 1000);
    }

    QScrollBar* bar() { return mArea->verticalScrollBar(); }

    void turn(QObject* receiver, QPointF global)
    {
        const QPointF local = mArea->mapFromGlobal(global);
        QWheelEvent event(local, global, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // as from a hand: what a control leaves goes to the page
        qApp->notify(receiver, &event);
    }

    std::unique_ptr<QScrollArea> mArea;
    GalleryPage* mPage = nullptr;

private slots:
    void initTestCase()
    {
        quillon::initResources();
        QVERIFY(GlobalFont::instance().load(quillon::applicationFontPaths()));
    }

    void pages_data()
    {
        QTest::addColumn<int>("family");
        QTest::addColumn<bool>("takesWheel");
        int index = 0;
        for (const Family& family : kFamilies) {
            const QByteArray file = family.file;
            QTest::newRow(family.file) << index++ << (file == "dials" || file == "sliders");
        }
    }

    void handsAreSeen_data() { pages_data(); }
    void handsAreSeen()
    {
        QFETCH(const int, family);
        show(kFamilies[family]);
        QPixmap normal;
        const QPixmap page = mPage->picture();
        for (const GalleryPage::Shown& each : mPage->shown()) {
            const QPixmap now = page.copy({each.control->mapTo(mPage, QPoint()), each.control->size()});
            if (each.name != each.firstName) {
                QVERIFY2(each.exhibit->touch == Touch::None || now.toImage() != normal.toImage(), qPrintable(each.name));
            } else {
                normal = now;
            }
        }
    }

    void scrollingPagesKeepValues_data() { pages_data(); }
    void scrollingPagesKeepValues()
    {
        QFETCH(const int, family);
        QFETCH(const bool, takesWheel);
        show(kFamilies[family]);
        for (const GalleryPage::Shown& each : mPage->shown()) {
            if (each.name != each.firstName)
                continue;
            const int top = std::max(each.control->mapTo(mPage, QPoint()).y() - 100, 0);
            bar()->setValue(top);
            const QPointF under = each.control->mapToGlobal(QPointF(each.control->rect().center()));
            const QImage before = each.control->grab().toImage();
            turn(mArea->viewport(), under); // the page is scrolled,
            bar()->setValue(top);           // and the control has slid under the pointer
            turn(mArea->windowHandle(), under);
            QVERIFY2(each.control->grab().toImage() == before, qPrintable(each.name));
            QVERIFY2(bar()->value() > top, qPrintable(each.name)); // the page goes on
            bar()->setValue(top);
            if (takesWheel) {
                turn(mArea->windowHandle(), under + QPointF(8, 0)); // the hand has moved
                QVERIFY2(each.control->grab().toImage() != before, qPrintable(each.name));
                QVERIFY2(bar()->value() == top, qPrintable(each.name));
            }
        }
    }
};

QTEST_MAIN(TestGallery)
#include "tst_gallery.moc"
