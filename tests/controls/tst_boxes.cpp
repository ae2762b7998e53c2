#include "app/GlobalFont.h"
#include "controls/ComboBoxS1M2.h"
#include "controls/ComboBoxS1M3.h"
#include "controls/MenuS1M1.h"
#include "controls/MessageBoxS1M1.h"
#include "controls/MessageBoxS2M1.h"
#include "controls/MessageBoxS3M1.h"
#include "controls/MessageBoxWidget.h"
#include "controls/ToolButtonS1M1.h"
#include "resources/Resources.h"
#include "tests/controls/Hands.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <functional>

using namespace Qt::StringLiterals;

namespace
{

using MakeBody = MessageBoxWidget* (*)();

template<class Body> MessageBoxWidget* make()
{
    return new Body;
}

MessageBoxWidget* makeNamed()
{
    auto* body = new MessageBoxWidget1;
    body->setName(u"\" "_s + QString(80, u'W') + u" \""_s);
    return body;
}

/// Shows a dialog and waits for the keyboard to be in it.
void open(FramelessWindow& box)
{
    box.resize(380, 290);
    box.open();
    QVERIFY(QTest::qWaitForWindowActive(&box));
}

QString nameOf(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

/// The menu that is open, whatever it belongs to.
QMenu* openMenu()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

} // namespace

class TestBoxes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        quillon::initResources();
        GlobalFont::instance().load(quillon::applicationFontPaths());
    }

    void init() { QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s)); }

    void answers_data()
    {
        QTest::addColumn<MakeBody>("body");
        QTest::addColumn<QString>("choice");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QStringList>("event");
        QTest::addColumn<int>("result");
        const QString first = u"PushButton1"_s;
        const QString second = u"PushButton2"_s;
        const auto row = [](const char* tag, MakeBody body, const QString& choice, const QString& button, const QString& attribute,
                            const QString& value, int result) {
            QTest::newRow(tag) << body << choice << button << QStringList{u""_s, attribute, value} << result;
        };
        row("keep", make<MessageBoxWidget1>, {}, first, u"Cancel"_s, u"1"_s, 1);
        row("delete", make<MessageBoxWidget1>, {}, second, u"Ok"_s, u"1"_s, 2);
        row("overwrite", make<MessageBoxWidget2>, {}, first, u"Override"_s, u"1"_s, 1);
        row("another name", make<MessageBoxWidget2>, {}, second, u"Continue"_s, u"1"_s, 2);
        row("no download", make<MessageBoxWidget3>, u"CheckBox3"_s, first, u"Cancel"_s, u"1"_s, 1);
        row("download, untouched", make<MessageBoxWidget3>, {}, second, u"Ok"_s, u"Item1"_s, 2);
        row("download, checked one again", make<MessageBoxWidget3>, u"CheckBox1"_s, second, u"Ok"_s, u"Item1"_s, 2);
        row("download, new", make<MessageBoxWidget3>, u"CheckBox2"_s, second, u"Ok"_s, u"Item2"_s, 3);
        row("download only", make<MessageBoxWidget3>, u"CheckBox3"_s, second, u"Ok"_s, u"Item3"_s, 4);
        row("no restore", make<MessageBoxWidget4>, {}, first, u"Cancel"_s, u"1"_s, 1);
        row("restore", make<MessageBoxWidget4>, {}, second, u"Ok"_s, u"Item1"_s, 2);
        row("restore all", make<MessageBoxWidget4>, u"CheckBox2"_s, second, u"Ok"_s, u"Item2"_s, 3);
    }

    void answers()
    {
        QFETCH(MakeBody, body);
        QFETCH(QString, choice);
        QFETCH(QString, button);
        QFETCH(QStringList, event);
        QFETCH(int, result);
        MessageBoxWidget* widget = body();
        MessageBoxS3M1 box(widget);
        open(box);
        QSignalSpy events(widget, &MessageBoxWidget::attributeChanged);
        QSignalSpy finished(&box, &QDialog::finished);
        if (!choice.isEmpty()) {
            QTest::mouseClick(box.findChild<QWidget*>(choice), Qt::LeftButton);
            for (auto* other : box.findChildren<QCheckBox*>()) {
                QCOMPARE(other->isChecked(), other->objectName() == choice);
                QCOMPARE(other->isEnabled(), other->objectName() != choice);
            }
        }
        QTest::mouseClick(box.findChild<QWidget*>(button), Qt::LeftButton);
        QCOMPARE(events.size(), 1);
        QCOMPARE(QStringList({events[0][0].toString(), events[0][1].toString(), events[0][2].toString()}), event);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(finished[0][0].toInt(), result);
    }

    void keys_data()
    {
        QTest::addColumn<std::function<FramelessWindow*()>>("make");
        QTest::addColumn<int>("onReturn");
        QTest::addColumn<int>("stops"); // of Tab, the close button among them
        using Make = std::function<FramelessWindow*()>;
        QTest::newRow("S1M1") << Make([] { return new MessageBoxS1M1; }) << 2 << 3;
        QTest::newRow("S2M1") << Make([] { return new MessageBoxS2M1; }) << 3 << 4;
        QTest::newRow("delete") << Make([] { return new MessageBoxS3M1(new MessageBoxWidget1); }) << 1 << 3;
        QTest::newRow("overwrite") << Make([] { return new MessageBoxS3M1(new MessageBoxWidget2); }) << 2 << 3;
        QTest::newRow("download") << Make([] { return new MessageBoxS3M1(new MessageBoxWidget3); }) << 2 << 5;
        QTest::newRow("restore") << Make([] { return new MessageBoxS3M1(new MessageBoxWidget4); }) << 1 << 4;
    }

    void keys()
    {
        using Make = std::function<FramelessWindow*()>;
        QFETCH(Make, make);
        QFETCH(int, onReturn);
        QFETCH(int, stops);
        const std::unique_ptr<FramelessWindow> box(make());
        QSignalSpy finished(box.get(), &QDialog::finished);
        for (int pass = 0; pass < 2; ++pass) { // opened again it starts anew
            open(*box);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            QCOMPARE(finished.takeFirst()[0].toInt(), onReturn);
        }
        open(*box);
        QSet<QWidget*> reached;
        for (int i = 0; i < 12; ++i) {
            reached.insert(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(reached.size(), stops);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QCOMPARE(finished.takeFirst()[0].toInt(), 0);
    }

    void unknownAnswerIsIgnored()
    {
        MessageBoxS1M1 box;
        open(box);
        emit box.widget()->buttonClicked(u"Maybe"_s);
        QVERIFY(box.isVisible());
    }

    void textsFit_data()
    {
        QTest::addColumn<MakeBody>("body");
        QTest::newRow("delete") << MakeBody(makeNamed);
        QTest::newRow("overwrite") << MakeBody(make<MessageBoxWidget2>);
        QTest::newRow("download") << MakeBody(make<MessageBoxWidget3>);
        QTest::newRow("restore") << MakeBody(make<MessageBoxWidget4>);
    }

    void textsFit()
    {
        QFETCH(MakeBody, body);
        MessageBoxWidget* widget = body();
        MessageBoxS3M1 box(widget);
        box.show();
        for (const QString& language : {u"English"_s, u"Chinese"_s}) {
            widget->setLanguage(language);
            for (const QSize size : {QSize(300, 230), QSize(422, 328), QSize(1180, 904)}) {
                box.resize(size);
                QCoreApplication::processEvents();
                int bottom = 0;
                for (auto* child : widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                    const QString text = child->property("text").toString();
                    const int room = qobject_cast<QCheckBox*>(child) ? child->width() - 2 * child->fontMetrics().height() * 9 / 10
                                                                     : child->width();
                    QVERIFY2(child->fontMetrics().horizontalAdvance(text) <= room, qPrintable(text));
                    QVERIFY2(text.isEmpty() || child->fontMetrics().height() <= child->height() + 1, qPrintable(text));
                    QVERIFY(widget->rect().contains(child->geometry()));
                    if (!qobject_cast<QPushButton*>(child)) {
                        QVERIFY(child->y() >= bottom);
                        bottom = child->geometry().bottom();
                    }
                }
            }
        }
    }

    void menuByMouseAndKeys()
    {
        MenuS1M1 menu(nullptr, u"Presets"_s);
        menu.setObjectName(u"box"_s);
        menu.addItem({u"User"_s, u"user"_s, false}, {{u"Never"_s, u"x"_s, true}});
        menu.addItem({u"Other"_s, u"other"_s, false}, {{u"Load"_s, u"l"_s, true}});
        QAccessible::queryAccessibleInterface(menu.item(u"user"_s)); // made while it could not be checked
        menu.addItem({u"User 1"_s, u"user"_s, true},
                     {{u"Load"_s, u"l"_s, true}, {u"Save"_s, u"s"_s, false}, {u"Erase"_s, u"e"_s, true}});
        QCOMPARE(menu.findChildren<QToolButton*>().size(), 2); // the name stood for the same button
        QCOMPARE(menu.item(u"user"_s)->text(), u"User 1"_s);
        QVERIFY(menu.item(u"user"_s)->isCheckable() && !menu.item(u"other"_s)->isCheckable());
        QCOMPARE(QAccessible::queryAccessibleInterface(menu.item(u"user"_s))->role(), QAccessible::CheckBox);
        menu.resize(200, 160);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));

        QSignalSpy events(&menu, &MenuS1M1::attributeChanged);
        QWidget* user = menu.item(u"user"_s);
        user->setFocus(Qt::TabFocusReason);
        QTest::keyClick(user, Qt::Key_Return);
        QTRY_VERIFY(openMenu());
        for (int i = 0; i < 2; ++i) // over the one that is disabled
            QTest::keyClick(openMenu(), Qt::Key_Down);
        QTest::keyClick(openMenu(), Qt::Key_Return);
        QCOMPARE(events.takeFirst(), QVariantList({u"box"_s, u"user"_s, u"e"_s}));

        const auto renew = connect(&menu, &MenuS1M1::attributeChanged, &menu, [&menu] {
            menu.addItem({u"User 1"_s, u"user"_s, true}, {{u"Load"_s, u"l"_s, true}, {u"Save"_s, u"s"_s, false}});
        });
        QTest::keyClick(user, Qt::Key_Return);
        QTRY_VERIFY(openMenu());
        QTest::keyClick(openMenu(), Qt::Key_Down);
        QTest::keyClick(openMenu(), Qt::Key_Return);
        disconnect(renew);
        QVERIFY(!openMenu() && user->findChild<QMenu*>()->actions().size() == 2);
        events.clear();

        for (const int alignment : {0, 1}) {
            menu.setAlignment(alignment);
            QTest::mouseClick(user, Qt::LeftButton);
            QTRY_VERIFY(openMenu());
            const int left = user->mapToGlobal(QPoint()).x();
            QCOMPARE(openMenu()->x(), std::max(0, alignment == 1 ? left : left + user->width() - openMenu()->width() + 10));
            const QRect first = openMenu()->actionGeometry(openMenu()->actions().value(alignment));
            QTest::mouseMove(openMenu(), first.center());
            QTest::mouseClick(openMenu(), Qt::LeftButton, {}, first.center());
            QCOMPARE(events.size(), alignment == 0 ? 1 : 0); // the second one is disabled
            events.clear();
            while (openMenu())
                openMenu()->close();
        }
    }

    void toolButtonKeepsItsItems()
    {
        QWidget window;
        window.setAccessibleName(u"Output"_s);
        ToolButtonS1M1 tool(&window);
        tool.setObjectName(u"tool"_s);
        tool.addMenu(u"Input/Playback"_s);
        tool.addItem(u"Input"_s, u"IN 1"_s);
        tool.addItem(u"Input"_s, u"IN 1"_s);
        tool.addItem(u"Playback"_s, u"Playback 1/2"_s); // an inner section is found
        tool.addItem(u"Mixer"_s, u"Mix A"_s);           // a missing one is made
        auto* root = tool.findChild<QMenu*>();
        QCOMPARE(root->actions().size(), 2);
        QMenu* input = root->actions().at(0)->menu();
        QCOMPARE(input->actions().size(), 2);
        QAction* mixA = root->actions().at(1)->menu()->actions().at(0);
        QAction* playback = input->actions().at(0)->menu()->actions().at(0);

        QSignalSpy events(&tool, &ToolButtonS1M1::attributeChanged);
        tool.setCurrentItem(u"Playback 1/2"_s);
        QVERIFY(events.isEmpty() && playback->isChecked());
        playback->trigger(); // the same again is no event, and stays checked
        QVERIFY(events.isEmpty() && playback->isChecked());
        mixA->trigger();
        QCOMPARE(events.takeFirst(), QVariantList({u"tool"_s, u"ItemChanged"_s, u"Mix A"_s}));
        QVERIFY(mixA->isChecked() && !playback->isChecked());
        auto* button = tool.findChild<QToolButton*>();
        QCOMPARE(nameOf(button), u"Output"_s); // not the source that happens to be chosen
        QCOMPARE(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Value), u"Mix A"_s);
        tool.clear();
        QVERIFY(root->isEmpty() && tool.currentItem() == "Mix A"_L1);
    }

    void combos_data()
    {
        QTest::addColumn<std::function<QComboBox*(QWidget*)>>("make");
        using Make = std::function<QComboBox*(QWidget*)>;
        QTest::newRow("S1M2") << Make([](QWidget* parent) { return new ComboBoxS1M2(parent); });
        QTest::newRow("S1M3") << Make([](QWidget* parent) { return new ComboBoxS1M3(parent, 0.5, Qt::AlignCenter); });
    }

    void combos()
    {
        using Make = std::function<QComboBox*(QWidget*)>;
        QFETCH(Make, make);
        QWidget window;
        QComboBox* combo = make(&window);
        combo->setAccessibleName(u"Rate"_s);
        combo->addItems({u"44.1 kHz"_s, u"48 kHz"_s, u"96 kHz"_s});
        combo->resize(70, 24);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        QSignalSpy activated(combo, &QComboBox::activated);
        QVERIFY(turn(combo, -60));
        QCOMPARE(combo->currentIndex(), 0);
        turn(combo, -60);
        QCOMPARE(combo->currentIndex(), 1);
        turn(combo, -1200); // to the end, in one
        QCOMPARE(combo->currentIndex(), 2);
        QVERIFY(turn(combo, -120)); // at the end the turn is still not the page's
        QCOMPARE(activated.size(), 2);

        auto* face = QAccessible::queryAccessibleInterface(combo);
        QCOMPARE(face->role(), QAccessible::ComboBox);
        QCOMPARE(face->text(QAccessible::Name), u"Rate"_s);
        QCOMPARE(face->text(QAccessible::Value), u"96 kHz"_s);
        combo->setFocus(Qt::TabFocusReason);
        QTest::keyClick(combo, Qt::Key_Space);
        QTRY_VERIFY(combo->view()->isVisible());
        QVERIFY(face->state().expanded);
        QTest::keyClick(combo->view(), Qt::Key_Up);
        QTest::keyClick(combo->view(), Qt::Key_Return);
        QTRY_VERIFY(!combo->view()->isVisible());
        QCOMPARE(combo->currentText(), u"48 kHz"_s);
        face->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
        QTRY_VERIFY(combo->view()->isVisible());
        combo->hidePopup();
        combo->setEnabled(false);
        QTest::keyClick(combo, Qt::Key_Down);
        QCOMPARE(combo->currentText(), u"48 kHz"_s);
    }

    void listIsReadyWithItems()
    {
        ComboBoxS1M2 combo;
        combo.setObjectName(u"rate"_s);
        QSignalSpy events(&combo, &ComboBoxS1M2::attributeChanged);
        combo.setItems({}, u"48"_s);
        QVERIFY(!combo.itemsReady());
        combo.setItems({u"Low"_s, u"High"_s}, u"HIGH"_s);
        QCOMPARE(combo.currentText(), u"High"_s);
        combo.setItems({u"Low"_s, u"High"_s}, u"None of them"_s);
        QCOMPARE(combo.currentIndex(), -1);
        QVERIFY(events.isEmpty() && combo.itemsReady());
        combo.setCurrentIndex(0);
        QCOMPARE(events.takeFirst(), QVariantList({u"rate"_s, u"ItemChanged"_s, u"Low"_s}));
    }

    void alignedComboOpensByItsText()
    {
        ComboBoxS1M3 plain;
        QCOMPARE(plain.lineEdit()->alignment(), Qt::AlignRight | Qt::AlignVCenter);
        ComboBoxS1M3 combo(nullptr, 0.5, Qt::AlignCenter);
        combo.addItems({u"peaking"_s, u"highshelf"_s});
        combo.setCurrentIndex(1);
        combo.resize(54, 24);
        combo.show();
        QVERIFY(QTest::qWaitForWindowActive(&combo));
        QCOMPARE(combo.iconSize(), QSize(12, 12));
        QVERIFY(combo.lineEdit()->fontMetrics().horizontalAdvance(u"highshelf"_s) <= combo.lineEdit()->width() - 4);
        QVERIFY(combo.view()->minimumWidth() >= combo.view()->fontMetrics().horizontalAdvance(u"highshelf"_s));
        QTest::keyClicks(combo.lineEdit(), u"x"_s);
        QCOMPARE(combo.currentText(), u"highshelf"_s);
        QTest::mouseClick(combo.lineEdit(), Qt::LeftButton);
        QTRY_VERIFY(combo.view()->isVisible());
        combo.hidePopup();
    }
};

QTEST_MAIN(TestBoxes)
#include "tst_boxes.moc"
