#include "controls/PushButtonGroups.h"
#include "controls/PushButtons.h"
#include "resources/Resources.h"
#include "tests/controls/Hands.h"

#include <QAccessible>
#include <QGraphicsDropShadowEffect>
#include <QMetaEnum>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using quillon::PanelFace;
using quillon::PanelShape;
using quillon::PlateButton;

namespace
{
template<class... Classes> std::vector<std::function<PanelFace*()>> makers()
{
    return {[]() -> PanelFace* { return new Classes; }...};
}

const std::vector<std::function<PanelFace*()>> kGroups =
    makers<PushButtonGroupS1M1, PushButtonGroupS1M2, PushButtonGroupS1M3, PushButtonGroupS1M4, PushButtonGroupS1M5,
           PushButtonGroupS1M6, PushButtonGroupS1M7, PushButtonGroupS1M8, PushButtonGroupS1M9, PushButtonGroupS1M10,
           PushButtonGroupS1M11, PushButtonGroupS1M12>();
const std::vector<std::function<PanelFace*()>> kPanels =
    makers<PushButtonS1M1, PushButtonS1M2, PushButtonS1M3, PushButtonS1M4, PushButtonS1M5, PushButtonS1M6, PushButtonS1M7,
           PushButtonS1M8, PushButtonS1M9, PushButtonS1M10, PushButtonS1M11, PushButtonS1M12, PushButtonS1M13, PushButtonS1M14>();

/// A member of either family with what it reports as texts, so that one contract runs over all of them.
class Panel : public QObject
{
public:
    Panel(bool group, int place)
        : shape(group ? quillon::groupShapes()[std::size_t(place)] : quillon::panelShapes()[std::size_t(place)]),
          face((group ? kGroups : kPanels)[std::size_t(place)]())
    {
        face->resize(shape.width * 2, shape.height * 2);
        face->show();
        if (auto* speaker = qobject_cast<quillon::PushButtonGroup*>(face.get())) {
            const auto hear = [this](const QString& button, const QString& what) { heard << button + u' ' + what; };
            connect(speaker, &quillon::PushButtonGroup::stateChanged, this, hear);
            connect(speaker, &quillon::PushButtonGroup::mouseClickEvent, this, hear);
        } else {
            const QMetaObject* meta = face->metaObject();
            mSpy = std::make_unique<QSignalSpy>(face.get(), meta->method(meta->indexOfSignal("buttonStateChanged(ButtonID,bool)")));
        }
    }

    int count() const { return int(shape.buttons.size()); }
    const quillon::PanelButton& row(int index) const { return shape.buttons[std::size_t(index)]; }
    QString name(int index) const { return QLatin1StringView(row(index).name); }
    PlateButton* button(int index) const { return face->findChild<PlateButton*>("PushButton"_L1 + name(index)); }
    bool isOn(int index) const
    {
        const bool on = face->getState(name(index)) == (shape.selector ? name(index) : u"1"_s);
        return on == button(index)->isChecked() ? on : throw std::logic_error("state and button differ");
    }
    /// What was reported since the last call: "MUTE 1".
    QString told()
    {
        for (; mSpy && !mSpy->isEmpty(); mSpy->removeFirst()) {
            heard << name(mSpy->first()[0].toInt()) + (mSpy->first()[1].toBool() ? u" 1"_s : u" 0"_s);
        }
        return std::exchange(heard, {}).join(u',');
    }

    const PanelShape& shape;
    std::unique_ptr<PanelFace> face;
    QStringList heard;

private:
    std::unique_ptr<QSignalSpy> mSpy;
};

void memberRows(const std::function<bool(const PanelShape&)>& takes = [](const PanelShape&) { return true; })
{
    QTest::addColumn<bool>("group");
    QTest::addColumn<int>("place");
    for (const bool group : {true, false}) {
        const auto shapes = group ? quillon::groupShapes() : quillon::panelShapes();
        QCOMPARE(shapes.size(), (group ? kGroups : kPanels).size());
        for (std::size_t i = 0; i < shapes.size(); ++i) {
            if (takes(shapes[i])) {
                QTest::addRow("%s%s", group ? "group " : "panel ", shapes[i].member) << group << int(i);
            }
        }
    }
}

bool isSwitches(const PanelShape& shape)
{
    return !shape.selector;
}

bool hasSet(const PanelShape& shape)
{
    return shape.buttons.front().exclusive;
}

/// How many pixels differ in brightness, colour aside.
int differentPixels(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            count += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 12 ? 1 : 0;
        }
    }
    return count;
}

} // namespace

#define FETCH_PANEL(panel)                                                                                                         \
    QFETCH(bool, group);                                                                                                           \
    QFETCH(int, place);                                                                                                            \
    Panel panel(group, place)

class TestGroups : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { quillon::initResources(); }

    void membersHaveTheirRows_data() { memberRows(); }
    /// A class with the row of another, an enum in another order than its row, a setter for another button.
    void membersHaveTheirRows()
    {
        FETCH_PANEL(panel);
        const QMetaObject* meta = panel.face->metaObject();
        QVERIFY(QByteArray(meta->className()).endsWith(panel.shape.member));
        QCOMPARE(panel.face->minimumSize(), QSize(panel.shape.width, panel.shape.height));
        const QMetaEnum ids = meta->enumerator(meta->indexOfEnumerator("ButtonID"));
        QCOMPARE(ids.keyCount(), group ? 0 : panel.count());
        for (int i = 0; i < panel.count(); ++i) {
            QVERIFY(group || QByteArray(ids.key(i)).endsWith(panel.row(i).name));
            const QByteArray setter = QByteArray("setState") + panel.row(i).name;
            QVERIFY2(QMetaObject::invokeMethod(panel.face.get(), setter, Q_ARG(bool, true)), setter);
            QCOMPARE(panel.told(), panel.name(i) + " 1"_L1);
            QVERIFY(panel.isOn(i));
        }
    }

    void everyCombination_data() { memberRows(isSwitches); }
    void everyCombination()
    {
        FETCH_PANEL(panel);
        for (unsigned state = 0; state < 1u << panel.count(); ++state) {
            for (int i = 0; i < panel.count(); ++i) {
                panel.face->setState(panel.name(i), state >> i & 1u ? u"1"_s : u"0"_s, false);
            }
            for (int i = 0; i < panel.count(); ++i) {
                QVERIFY(panel.row(i).exclusive || panel.isOn(i) == bool(state >> i & 1u));
            }
        }
        QCOMPARE(panel.told(), QString());
    }

    void setStateTellsOnlyWhenAsked_data() { memberRows(isSwitches); }
    void setStateTellsOnlyWhenAsked()
    {
        FETCH_PANEL(panel);
        const int last = panel.count() - 1;
        panel.face->setState(panel.name(last), u"2"_s, false);
        QVERIFY(panel.isOn(last));
        panel.face->setState(panel.name(last), u"no number"_s, false);
        QVERIFY(!panel.isOn(last));
        panel.face->setState(u"NOSUCH"_s, u"1"_s, true);
        QCOMPARE(panel.face->getState(u"NOSUCH"_s), u"0"_s);
        QCOMPARE(panel.told(), QString());
        panel.face->setState(panel.name(last), u"1"_s, true);
        panel.face->setState(panel.name(last), u"1"_s, true);
        QCOMPARE(panel.told(), panel.name(last) + " 1,"_L1 + panel.name(last) + " 1"_L1);
        if (auto* buttons = qobject_cast<quillon::PushButtonPanel*>(panel.face.get())) {
            buttons->loadState(last, false);
            buttons->loadState(panel.count(), true);
            QVERIFY(!panel.isOn(last));
            QCOMPARE(panel.told(), QString());
        }
    }

    void handsToggle_data() { memberRows(isSwitches); }
    void handsToggle()
    {
        FETCH_PANEL(panel);
        for (int i = 0; i < panel.count(); ++i) {
            if (panel.row(i).exclusive) {
                continue;
            }
            if (!panel.row(i).mouseEvents) {
                QTest::mouseClick(panel.button(i), Qt::LeftButton);
                QCOMPARE(panel.told(), panel.name(i) + " 1"_L1);
            }
            QAccessible::queryAccessibleInterface(panel.button(i))
                ->actionInterface()
                ->doAction(QAccessibleActionInterface::toggleAction());
            QCOMPARE(panel.told(), panel.name(i) + (panel.row(i).mouseEvents ? " 1"_L1 : " 0"_L1));
            const auto after = panel.isOn(i) ? " 0"_L1 : " 1"_L1;
            QTest::keyClick(panel.button(i), Qt::Key_Space);
            QCOMPARE(panel.told(), panel.name(i) + after);
        }
    }

    void setHoldsExactlyOne_data() { memberRows(hasSet); }
    void setHoldsExactlyOne()
    {
        FETCH_PANEL(panel);
        for (int i = 3; i < panel.count(); ++i) {
            panel.face->setState(panel.name(i), u"1"_s, false);
        }
        QCOMPARE(panel.face->getState(u"Mic9"_s), panel.shape.selector ? QString() : u"0"_s);
        panel.face->setState(u"Mic35"_s, panel.shape.selector ? u"0"_s : u"1"_s, false);
        panel.face->setState(u"Mic9"_s, u"1"_s, true);
        QTest::mouseClick(panel.button(1), Qt::LeftButton);
        panel.face->setState(u"Mic35"_s, panel.shape.selector ? u"1"_s : u"0"_s, true);
        QCOMPARE(panel.told(), QString());
        QVERIFY(panel.isOn(1));
        for (int selected = 0; selected < 3; ++selected) {
            QTest::mouseClick(panel.button(selected), Qt::LeftButton);
            QCOMPARE(panel.told(), panel.name(selected) + " 1"_L1);
            for (int i = 0; i < 3; ++i) {
                QCOMPARE(panel.isOn(i), i == selected);
            }
        }
        QVERIFY(QTest::qWaitForWindowActive(panel.face.get()));
        panel.button(2)->setFocus();
        QTest::keyClick(panel.button(2), Qt::Key_Up);
        QCOMPARE(panel.told(), u"Mic35 1"_s);
        for (int i = 3; i < panel.count(); ++i) {
            QVERIFY(panel.isOn(i));
        }
    }

    /// Every button that tells them apart, under every kind of click; all at once, since each waits.
    void clicks()
    {
        const std::tuple<Qt::MouseButton, bool, QString> ways[] = {{Qt::LeftButton, false, u"%1 LeftButtonSingle,%1 1"_s},
                                                                   {Qt::RightButton, false, u"%1 RightButtonSingle"_s},
                                                                   {Qt::MiddleButton, false, u"%1 MiddleButtonSingle"_s},
                                                                   {Qt::LeftButton, true, u"%1 LeftButtonDouble"_s},
                                                                   {Qt::RightButton, true, u"%1 RightButtonDouble"_s}};
        std::vector<std::pair<std::unique_ptr<Panel>, QString>> cases;
        for (int place = 0; place < int(kGroups.size()); ++place) {
            const auto buttons = quillon::groupShapes()[std::size_t(place)].buttons;
            for (int i = 0; i < int(buttons.size()); ++i) {
                for (const auto& [mouseButton, twice, expected] : ways) {
                    if (!buttons[std::size_t(i)].mouseEvents) {
                        continue;
                    }
                    auto panel = std::make_unique<Panel>(true, place);
                    QTest::mouseClick(panel->button(i), mouseButton);
                    QCOMPARE(panel->told(), QString());
                    if (twice) {
                        QTest::mouseDClick(panel->button(i), mouseButton); // the second press alone
                        QTest::mouseRelease(panel->button(i), mouseButton);
                    }
                    QVERIFY(!panel->button(i)->isDown());
                    cases.emplace_back(std::move(panel), expected.arg(QLatin1StringView(buttons[std::size_t(i)].name)));
                }
            }
        }
        QCOMPARE(cases.size(), 5 * std::size(ways)); // DUCKING, EQ, EQ and DUCKING, EQ
        QTest::qWait(quillon::ClickTiming::kIntervalMs + 100);
        for (const auto& [panel, expected] : cases) {
            QTRY_VERIFY(!panel->heard.isEmpty());
            QCOMPARE(panel->told(), expected);
        }
    }

    void clicksThatCallEachOtherOff()
    {
        Panel panel(true, 10);
        PlateButton* eq = panel.button(2);
        PlateButton* ducking = panel.button(3);
        QTest::mouseClick(eq, Qt::LeftButton);
        QTest::mouseClick(ducking, Qt::LeftButton);
        QTest::mousePress(eq, Qt::LeftButton);
        QTest::mouseRelease(eq, Qt::LeftButton, {}, {-5, 400});
        QTest::qWait(quillon::ClickTiming::kIntervalMs + 50);
        QCOMPARE(panel.told(), QString());
        QTest::keyClick(ducking, Qt::Key_Return);
        QCOMPARE(panel.told(), u"DUCKING RightButtonSingle"_s);
        QVERIFY(!panel.isOn(3));
    }

    void everythingFits_data() { memberRows(); }
    void everythingFits()
    {
        FETCH_PANEL(panel);
        for (const double scale : {1.0, 1.3, 2.0, 4.0}) {
            panel.face->resize(int(panel.shape.width * scale), int(panel.shape.height * scale));
            QRegion taken;
            for (QWidget* child : panel.face->findChild<QWidget*>(u"frame"_s)->findChildren<QWidget*>()) {
                QVERIFY(!taken.intersects(child->geometry()));
                QVERIFY(panel.face->rect().contains(child->geometry()));
                taken += child->geometry();
            }
            for (const QString& language : {u"English"_s, u"Chinese"_s}) {
                panel.face->setLanguage(language);
                panel.face->setLanguage(u"Klingon"_s);
                for (int i = 0; i < panel.count(); ++i) {
                    const PlateButton* button = panel.button(i);
                    const QFontMetricsF metrics(button->font());
                    QVERIFY2(metrics.horizontalAdvance(button->text()) <= button->captionSize().width(),
                             qPrintable(button->text()));
                    const double ink = metrics.tightBoundingRect(button->text()).height();
                    QVERIFY2(ink < button->captionSize().height() + 1, qPrintable(u"%1 %2"_s.arg(ink).arg(scale)));
                }
            }
        }
    }

    void wordsFitWhatWasHidden_data() { memberRows(); }
    /// Widgets that are hidden hear of their size only when they are shown.
    void wordsFitWhatWasHidden()
    {
        FETCH_PANEL(panel);
        const QSize large(panel.shape.width * 4, panel.shape.height * 4);
        panel.face->resize(large);
        const int shown = panel.button(0)->font().pixelSize();
        panel.face->resize(large / 4);
        panel.face->hide();
        panel.face->resize(large);
        panel.face->show();
        QCOMPARE(panel.button(0)->font().pixelSize(), shown);
    }

    void keyboardAndAssistants_data() { memberRows(); }
    /// The order of Tab, and what a reader hears: which strip, which button, of what kind, on or off.
    void keyboardAndAssistants()
    {
        FETCH_PANEL(panel);
        QVERIFY(QTest::qWaitForWindowActive(panel.face.get()));
        panel.face->setAccessibleName(u"IN 1"_s);
        QSet<QString> names;
        for (const QString& language : {u"Chinese"_s, u"English"_s}) {
            panel.face->setLanguage(language);
            names.clear();
            panel.button(0)->setFocus(Qt::TabFocusReason);
            for (int i = 0; i < panel.count(); ++i) {
                PlateButton* button = panel.button(i);
                QVERIFY(button->hasFocus());
                QAccessibleInterface* told = QAccessible::queryAccessibleInterface(button);
                QCOMPARE(told->role(), panel.row(i).exclusive ? QAccessible::RadioButton : QAccessible::CheckBox);
                QVERIFY(told->text(QAccessible::Name).startsWith("IN 1 "_L1 + button->text()));
                names << told->text(QAccessible::Name);
                panel.face->setState(panel.name(i), u"1"_s, false);
                QVERIFY(told->state().checked);
                // Tab takes a set as one stop; the arrows lead through it.
                const bool within = panel.row(i).exclusive && i + 1 < panel.count() && panel.row(i + 1).exclusive;
                QTest::keyClick(button, within ? Qt::Key_Down : Qt::Key_Tab);
            }
            QCOMPARE(names.size(), panel.count());
        }
    }

    void statesDifferByMoreThanColour_data() { memberRows(); }
    void statesDifferByMoreThanColour()
    {
        FETCH_PANEL(panel);
        PlateButton* button = panel.button(0);
        const int enough = button->width() * button->height() / 50;
        std::vector<QImage> looks;
        const auto look = [&] { looks.push_back(button->grab().toImage()); };
        button->setAttribute(Qt::WA_UnderMouse, false);
        look();
        button->setAttribute(Qt::WA_UnderMouse);
        look();
        button->setDown(true);
        look();
        button->setDown(false);
        button->setAttribute(Qt::WA_UnderMouse, false);
        panel.face->setState(panel.name(0), u"1"_s, false);
        look();
        QFocusEvent tab(QEvent::FocusIn, Qt::TabFocusReason);
        QCoreApplication::sendEvent(button, &tab);
        look();
        panel.face->setEnabled(false);
        look();
        for (std::size_t a = 0; a < looks.size(); ++a) {
            for (std::size_t b = 0; b < a; ++b) {
                QVERIFY2(differentPixels(looks[a], looks[b]) >= enough, qPrintable(u"%1 and %2"_s.arg(a).arg(b)));
            }
        }
    }

    void aChangeRepaintsOneButton()
    {
        const Panel panel(true, 1);
        QVERIFY(QTest::qWaitForWindowExposed(panel.face.get()));
        QTest::qWait(20);
        PaintCount solo;
        PaintCount mute;
        panel.button(0)->installEventFilter(&solo);
        panel.button(1)->installEventFilter(&mute);
        panel.face->setState(u"MUTE"_s, u"1"_s, false);
        QTRY_COMPARE(mute.count, 1);
        panel.face->setState(u"MUTE"_s, u"1"_s, false);
        QTest::qWait(20);
        QCOMPARE(mute.count, 1);
        QCOMPARE(solo.count, 0);
    }

    void glowIsOffAtFirst()
    {
        PushButtonS1M15 button;
        const auto* shadow = qobject_cast<QGraphicsDropShadowEffect*>(button.graphicsEffect());
        QVERIFY(shadow);
        QVERIFY(!shadow->isEnabled() && shadow->offset().isNull());
        button.setShadowEnabled(true);
        QVERIFY(shadow->isEnabled());
    }
};

QTEST_MAIN(TestGroups)
#include "tst_groups.moc"
