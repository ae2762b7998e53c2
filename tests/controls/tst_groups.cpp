#include "controls/PushButtonGroupS1M11.h"
#include "controls/PushButtonGroupS1M2.h"
#include "controls/PushButtonGroupS1M9.h"
#include "resources/Resources.h"
#include "tests/controls/Hands.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using quillon::GroupShape;

namespace
{
/// A group with its face flattened, so that one contract runs over all members.
struct Face {
    std::unique_ptr<QWidget> widget;
    const GroupShape* shape;
    std::function<void(QString, QString, bool)> setState;
    std::function<QString(QString)> getState;
    std::function<void(QString)> setLanguage;
    std::function<void(QString)> setAccessibleName;

    QString name(int index) const { return QLatin1StringView(shape->buttons[std::size_t(index)].name); }
    int count() const { return int(shape->buttons.size()); }
    QPushButton* button(int index) const { return widget->findChild<QPushButton*>("PushButton"_L1 + name(index)); }
    QImage picture() const { return QImage(widget->findChild<quillon::PlatePicture*>(u"frame"_s)->picture()); }

    /// Whether the picture shows the plate in a colour.
    bool plateLit(int index) const
    {
        const QImage image = picture();
        const quillon::PlateRect plate = quillon::plateRect(*shape, index);
        const QPointF centre((plate.x + plate.width / 2) * image.width(), (plate.y + plate.height / 2) * image.height());
        return image.pixelColor(centre.toPoint()).saturation() > 100;
    }
};

template<class Group> Face faceOf(const GroupShape& shape)
{
    auto group = std::make_unique<Group>();
    Group* g = group.get();
    g->resize(shape.width * 2, shape.height * 2);
    g->show();
    return {std::move(group),
            &shape,
            [g](const QString& b, const QString& s, bool e) { g->setState(b, s, e); },
            [g](const QString& b) { return g->getState(b); },
            [g](const QString& l) { g->setLanguage(l); },
            [g](const QString& n) { g->setAccessibleName(n); }};
}

Face faceOf(const QByteArray& member)
{
    if (member == "S1M2") {
        return faceOf<PushButtonGroupS1M2>(quillon::kGroupS1M2);
    }
    if (member == "S1M9") {
        return faceOf<PushButtonGroupS1M9>(quillon::kGroupS1M9);
    }
    return faceOf<PushButtonGroupS1M11>(quillon::kGroupS1M11);
}

void memberRows(std::initializer_list<const char*> members)
{
    QTest::addColumn<QByteArray>("member");
    for (const char* member : members) {
        QTest::newRow(member) << QByteArray(member);
    }
}

} // namespace

class TestGroups : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { quillon::initResources(); }

    void everyStateHasItsPicture_data() { memberRows({"S1M2", "S1M11"}); }
    /// A number swapped in a state table, or a plate drawn in another place than its button.
    void everyStateHasItsPicture()
    {
        QFETCH(QByteArray, member);
        const Face face = faceOf(member);
        for (unsigned state = 0; state < 1u << face.count(); ++state) {
            for (int i = 0; i < face.count(); ++i) {
                face.setState(face.name(i), state >> i & 1u ? u"1"_s : u"0"_s, false);
            }
            for (int i = 0; i < face.count(); ++i) {
                const bool on = state >> i & 1u;
                QCOMPARE(face.plateLit(i), on);
                QCOMPARE(face.button(i)->isChecked(), on);
                QCOMPARE(face.getState(face.name(i)), on ? u"1"_s : u"0"_s);
            }
        }
    }

    void setStateTellsOnlyWhenAsked_data() { memberRows({"S1M2", "S1M11"}); }
    void setStateTellsOnlyWhenAsked()
    {
        QFETCH(QByteArray, member);
        const Face face = faceOf(member);
        QSignalSpy spy(face.widget.get(), SIGNAL(stateChanged(QString, QString)));
        const QString last = face.name(face.count() - 1);
        face.setState(last, u"2"_s, false);
        QCOMPARE(face.getState(last), u"1"_s);
        face.setState(last, u"no number"_s, false);
        QCOMPARE(face.getState(last), u"0"_s);
        face.setState(u"NOSUCH"_s, u"1"_s, true);
        QCOMPARE(face.getState(u"NOSUCH"_s), u"0"_s);
        QCOMPARE(spy.size(), 0);
        face.setState(last, u"1"_s, true);
        face.setState(last, u"1"_s, true);
        QCOMPARE(spy.size(), 2);
        QCOMPARE(spy.last(), QVariantList({last, u"1"_s}));
    }

    void clickAndSpaceToggleAtOnce_data() { memberRows({"S1M2", "S1M11"}); }
    void clickAndSpaceToggleAtOnce()
    {
        QFETCH(QByteArray, member);
        const Face face = faceOf(member);
        QSignalSpy spy(face.widget.get(), SIGNAL(stateChanged(QString, QString)));
        QTest::mouseClick(face.button(0), Qt::LeftButton);
        QCOMPARE(spy.takeFirst(), QVariantList({face.name(0), u"1"_s}));
        QTest::keyClick(face.button(0), Qt::Key_Space);
        QCOMPARE(spy.takeFirst(), QVariantList({face.name(0), u"0"_s}));
        const int last = face.count() - 1;
        QTest::keyClick(face.button(last), Qt::Key_Space);
        QCOMPARE(spy.takeFirst(), QVariantList({face.name(last), u"1"_s}));
        QVERIFY(face.plateLit(last));
    }

    void clicks()
    {
        const std::tuple<Qt::MouseButton, bool, QString> ways[] = {{Qt::LeftButton, false, u"EQ LeftButtonSingle,EQ 1"_s},
                                                                   {Qt::RightButton, false, u"EQ RightButtonSingle"_s},
                                                                   {Qt::MiddleButton, false, u"EQ MiddleButtonSingle"_s},
                                                                   {Qt::LeftButton, true, u"EQ LeftButtonDouble"_s},
                                                                   {Qt::RightButton, true, u"EQ RightButtonDouble"_s}};
        for (const auto& [mouseButton, twice, expected] : ways) {
            PushButtonGroupS1M11 group;
            group.resize(96, 100);
            auto* eq = group.findChild<QPushButton*>(u"PushButtonEQ"_s);
            QStringList heard;
            const auto hear = [&](const QString& button, const QString& what) { heard << button + u' ' + what; };
            connect(&group, &PushButtonGroupS1M11::mouseClickEvent, this, hear);
            connect(&group, &PushButtonGroupS1M11::stateChanged, this, hear);
            QTest::mouseClick(eq, mouseButton);
            QVERIFY(heard.isEmpty());
            if (twice) {
                QTest::mouseDClick(eq, mouseButton); // the second press alone
                QTest::mouseRelease(eq, mouseButton);
            }
            QTRY_VERIFY_WITH_TIMEOUT(!heard.isEmpty(), 2000);
            QTest::qWait(quillon::ClickTiming::kIntervalMs + 50);
            QCOMPARE(heard.join(u','), expected);
            QVERIFY(!eq->isDown());
        }
    }

    void clicksThatCallEachOtherOff()
    {
        PushButtonGroupS1M11 group;
        group.resize(96, 100);
        auto* eq = group.findChild<QPushButton*>(u"PushButtonEQ"_s);
        auto* ducking = group.findChild<QPushButton*>(u"PushButtonDUCKING"_s);
        QSignalSpy clicks(&group, &PushButtonGroupS1M11::mouseClickEvent);
        QSignalSpy states(&group, &PushButtonGroupS1M11::stateChanged);
        QTest::mouseClick(eq, Qt::LeftButton);
        QTest::mouseClick(ducking, Qt::LeftButton);
        QTest::mousePress(eq, Qt::LeftButton);
        QTest::mouseRelease(eq, Qt::LeftButton, {}, {-5, 400});
        QTest::qWait(quillon::ClickTiming::kIntervalMs + 50);
        QCOMPARE(clicks.size() + states.size(), 0);
        QTest::keyClick(ducking, Qt::Key_Return);
        QCOMPARE(clicks.takeFirst(), QVariantList({u"DUCKING"_s, u"RightButtonSingle"_s}));
        QCOMPARE(group.getState(u"DUCKING"_s), u"0"_s);
    }

    void selectorHoldsExactlyOne()
    {
        const Face face = faceOf("S1M9");
        QSignalSpy spy(face.widget.get(), SIGNAL(stateChanged(QString, QString)));
        QCOMPARE(face.getState({}), QString());
        face.setState(u"Mic35"_s, u"0"_s, false);
        face.setState(u"Mic9"_s, u"1"_s, true);
        QCOMPARE(face.getState(u"anything"_s), u"Mic35"_s);
        QCOMPARE(spy.size(), 0);
        QTest::mouseClick(face.button(1), Qt::LeftButton);
        QCOMPARE(spy.size(), 0);
        for (int selected = 0; selected < face.count(); ++selected) {
            QTest::mouseClick(face.button(selected), Qt::LeftButton);
            QCOMPARE(spy.takeFirst(), QVariantList({face.name(selected), u"1"_s}));
            for (int i = 0; i < face.count(); ++i) {
                QCOMPARE(face.button(i)->isChecked(), i == selected);
                QCOMPARE(face.plateLit(i), i == selected);
            }
        }
        QVERIFY(QTest::qWaitForWindowActive(face.widget.get()));
        face.button(2)->setFocus();
        QTest::keyClick(face.button(2), Qt::Key_Up);
        QCOMPARE(spy.takeFirst(), QVariantList({u"Mic35"_s, u"1"_s}));
    }

    void captionsFitTheirPlates_data() { memberRows({"S1M2", "S1M9", "S1M11"}); }
    void captionsFitTheirPlates()
    {
        QFETCH(QByteArray, member);
        const Face face = faceOf(member);
        for (const double scale : {1.0, 1.3, 2.0, 4.0}) {
            face.widget->resize(int(face.shape->width * scale), int(face.shape->height * scale));
            for (const QString& language : {u"English"_s, u"Chinese"_s}) {
                face.setLanguage(language);
                face.setLanguage(u"Klingon"_s);
                for (int i = 0; i < face.count(); ++i) {
                    const QPushButton* button = face.button(i);
                    const QFontMetricsF metrics(button->font());
                    QVERIFY2(metrics.horizontalAdvance(button->text()) <= button->width(), qPrintable(button->text()));
                    QVERIFY2(metrics.tightBoundingRect(button->text()).height() < button->height(), qPrintable(button->text()));
                    QVERIFY(face.widget->rect().contains(button->geometry()));
                }
            }
        }
    }

    void buttonsAreAnnouncedWithTheirStrip()
    {
        const Face face = faceOf("S1M2");
        face.setAccessibleName(u"IN 1"_s);
        QCOMPARE(face.button(1)->accessibleName(), u"IN 1 MUTE"_s);
        face.setLanguage(u"Chinese"_s);
        QCOMPARE(face.button(1)->accessibleName(), u"IN 1 静音"_s);
    }

    void aChangeRepaintsOnceAndAnEqualStateNever()
    {
        const Face face = faceOf("S1M2");
        QVERIFY(QTest::qWaitForWindowExposed(face.widget.get()));
        QTest::qWait(20);
        PaintCount counter;
        face.widget->findChild<QWidget*>(u"frame"_s)->installEventFilter(&counter);
        face.setState(u"MUTE"_s, u"1"_s, false);
        QTRY_COMPARE(counter.count, 1);
        face.setState(u"MUTE"_s, u"1"_s, false);
        QTest::qWait(20);
        QCOMPARE(counter.count, 1);
    }
};

QTEST_MAIN(TestGroups)
#include "tst_groups.moc"
