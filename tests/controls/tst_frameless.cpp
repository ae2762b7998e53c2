#include "controls/FramelessWindow.h"
#include "resources/Resources.h"

#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{
class Window : public FramelessWindow
{
public:
    explicit Window(QSize least = {100, 100})
    {
        setMinimumSize(least);
        setGeometry(200, 100, 400, 300);
    }
    void setCloseResult(int result) { mResult = result; }
    QPushButton* button(int at) const { return findChild<QWidget*>(u"contentWidget"_s)->findChildren<QPushButton*>().at(at); }
    QPushButton* closeButton() const { return button(1); }
    QLabel* title() const { return findChild<QLabel*>(); }

    /// To the native window, so that the events take their way over the children.
    void mouse(QEvent::Type type, QPointF global, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, global - pos(), global - pos(), global, button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(windowHandle(), &event);
    }
    void hover(QPoint at) { mouse(QEvent::MouseMove, pos() + at, Qt::NoButton, Qt::NoButton); }
    /// Presses at a place of the window and drags by a way, as the pointer of the screen goes.
    void drag(QPoint from, QPoint way)
    {
        hover(from);
        const QPointF start = pos() + from;
        mouse(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
        for (const double part : {0.5, 1.0}) {
            mouse(QEvent::MouseMove, start + QPointF(way) * part, Qt::NoButton, Qt::LeftButton);
        }
        mouse(QEvent::MouseButtonRelease, start + way, Qt::LeftButton, Qt::NoButton);
    }
};
} // namespace

class TestFrameless : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { quillon::initResources(); }
    void cleanup() { QSettings().clear(); }

    void closing()
    {
        for (const int way : {0, 1, 2}) { // its button, escape, the window system
            Window window;
            window.setCloseResult(7);
            QStringList heard;
            connect(&window, &QDialog::finished, this, [&](int result) { heard << QString::number(result); });
            connect(&window, &FramelessWindow::buttonClicked, this,
                    [&](FramelessWindow::WindowButtonType button) { heard << u"button %1"_s.arg(int(button)); });
            window.show();
            if (way == 0) {
                QTest::mouseClick(window.closeButton(), Qt::LeftButton);
            } else if (way == 1) {
                QTest::keyClick(&window, Qt::Key_Escape);
            } else {
                window.close();
            }
            QCOMPARE(heard, QStringList({u"7"_s, u"button 2"_s}));
            QVERIFY(!window.isVisible());
            QCOMPARE(window.result(), 7);
        }
        Window window;
        window.setButtons(FramelessWindow::Min);
        window.show();
        QTest::keyClick(&window, Qt::Key_Escape); // needs a close button
        QVERIFY(window.isVisible());
    }

    void dragging()
    {
        const QRect at(200, 100, 400, 300);
        const std::tuple<QPoint, QPoint, bool, bool, QRect> drags[] = {
            {{200, 150}, {-30, 44}, true, true, at.translated(-30, 44)},
            {{399, 150}, {9, 0}, true, false, at.translated(9, 0)},
            {{399, 150}, {50, 50}, false, false, at},
            {{395, 150}, {60, 99}, true, true, at.adjusted(0, 0, 60, 0)},
            {{5, 5}, {20, -30}, true, true, at.adjusted(20, -30, 0, 0)},
            {{395, 295}, {-900, -900}, true, true, QRect(200, 100, 100, 100)}, // down to the least
            {{5, 150}, {900, 0}, true, true, QRect(500, 100, 100, 300)}};
        for (const auto& [from, way, movable, resizable, result] : drags) {
            Window window;
            window.setMovable(movable);
            window.setResizable(resizable);
            window.show();
            window.drag(from, way);
            QCOMPARE(window.geometry(), result);
            QCOMPARE(window.cursor().shape(), Qt::ArrowCursor);
            window.hover({200, 150});
            QCOMPARE(window.geometry(), result);
        }
    }

    void keepAspectResizesByOneCornerInRatio()
    {
        Window window({200, 100});
        window.setKeepAspect(true);
        window.show();
        window.hover({395, 150});
        QCOMPARE(window.cursor().shape(), Qt::ArrowCursor);
        window.hover({395, 295});
        QCOMPARE(window.cursor().shape(), Qt::SizeFDiagCursor);
        window.drag({395, 295}, {3, 50});
        QCOMPARE(window.geometry(), QRect(200, 100, 700, 350));
    }

    void cursorFollowsEdgesOnlyWhenResizable()
    {
        Window window;
        window.show();
        for (const auto& [place, shape] : {std::pair{QPoint(5, 295), Qt::SizeBDiagCursor},
                                           {QPoint(200, 29), Qt::SizeVerCursor},
                                           {QPoint(200, 30), Qt::ArrowCursor}}) {
            window.hover(place);
            QCOMPARE(window.cursor().shape(), shape);
        }
        window.setResizable(false);
        window.hover({5, 5});
        QCOMPARE(window.cursor().shape(), Qt::ArrowCursor);
    }

    void aNewBodyReplacesTheOld()
    {
        Window window;
        QPointer<QWidget> first = new QWidget;
        window.setBody(first);
        auto* second = new QWidget;
        window.setBody(second);
        window.setShadowEnabled(false);
        window.show();
        QTRY_VERIFY(!first);
        QVERIFY(second->isVisible() && second->mapTo(&window, QPoint()).y() > 20);
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.grab().toImage().pixelColor(20, 150).alpha() > 0);
        window.setLook(1); // the body alone, without a frame
        QVERIFY(!window.title()->isVisible());
        QTRY_COMPARE(second->size(), QSize(360, 260));
        QCOMPARE(window.grab().toImage().pixelColor(20, 150).alpha(), 0);
    }

    void titleKeepsClearOfTheButtons()
    {
        for (int look = 0; look < 12; ++look) {
            const int alignment = look % 3;
            const int mask = look / 3;
            Window window;
            window.setWindowTitle(u"Ducking"_s);
            window.setTitleAlignment(alignment);
            window.setButtons(mask);
            window.show();
            const QRect title = window.title()->geometry();
            const QRect bar = window.title()->parentWidget()->rect();
            QList<QRect> taken{title};
            for (int i = 0; i < 2; ++i) {
                const QRect button = window.button(i)->geometry();
                QCOMPARE(window.button(i)->isVisible(), (mask >> i & 1) != 0);
                if (window.button(i)->isVisible()) {
                    QVERIFY(bar.contains(button));
                    QVERIFY(std::ranges::none_of(taken, [&](const QRect& other) { return other.intersects(button); }));
                    taken += button;
                }
            }
            if (alignment == 1) {
                QCOMPARE(title.left(), bar.right() - title.right());
            }
            QVERIFY(QFontMetrics(window.title()->font()).height() <= title.height());
        }
    }

    void shadowFadesTowardsTheRim()
    {
        Window window;
        window.show();
        const QImage image = window.grab().toImage();
        int before = 255;
        for (int x = 19; x >= 0; --x) {
            const int alpha = image.pixelColor(x, 150).alpha();
            QVERIFY(alpha <= before);
            QVERIFY(qAbs(image.pixelColor(399 - x, 150).alpha() - alpha) <= 2);
            before = alpha;
        }
        QVERIFY(image.pixelColor(18, 150).alpha() > 60);
        QVERIFY(before < 10);
        window.setShadowEnabled(false);
        QCOMPARE(window.grab().toImage().pixelColor(18, 150).alpha(), 0);
    }

    void keysOfTheBodyStayInTheBody()
    {
        Window window;
        auto* body = new QWidget;
        auto* edit = new QLineEdit(body);
        window.setBody(body);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(!window.closeButton()->hasFocus());
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(window.isVisible());
        QTest::keyClick(edit, Qt::Key_Tab);
        QVERIFY(window.closeButton()->hasFocus());
        QTest::keyClick(window.closeButton(), Qt::Key_Space);
        QVERIFY(!window.isVisible());
    }

    void buttonsAreNamedInTheLanguageOfTheMoment()
    {
        Window window;
        window.show();
        QCOMPARE(window.closeButton()->accessibleName(), u"Close"_s);
        window.hide();
        QSettings().setValue("Language"_L1, u"Chinese"_s);
        window.show();
        QCOMPARE(window.closeButton()->accessibleName(), u"关闭"_s);
    }
};

QTEST_MAIN(TestFrameless)
#include "tst_frameless.moc"
