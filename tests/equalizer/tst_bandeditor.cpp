#include "controls/Accessibility.h"
#include "controls/ComboBoxS1M3.h"
#include "controls/DialS1M5.h"
#include "equalizer/editor/EqWidgetIem.h"
#include "equalizer/editor/EqualizerControllerS1M1.h"
#include "tests/controls/Hands.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

using Record = EqWidgetItemData;
using Hand = std::function<void(EqWidgetIem*)>;

/// "Type=1 Gain=0" of the object that is asked for: all that the device would hear.
QString told(const QSignalSpy& events)
{
    QStringList words;
    for (const QList<QVariant>& event : events) {
        words += event[0].toString() + u' ' + event[1].toString() + u'=' + event[2].toString();
    }
    return words.join(u", "_s);
}

template<typename T> T* part(EqWidgetIem* item, QLatin1StringView name)
{
    return item->findChild<T*>(name);
}

void choose(EqWidgetIem* item, int type)
{
    auto* combo = part<ComboBoxS1M3>(item, "comboBoxType"_L1);
    combo->setCurrentIndex(type);
    emit combo->activated(type);
}

/// Opens the dial's editor and types.
void typeInto(DialS1M5* dial, const QString& text)
{
    QTest::mouseClick(dial, Qt::RightButton, {}, dial->rect().center());
    QTest::keyClicks(dial->findChild<QLineEdit*>(), text);
}

/// What its controls show: type, gain, frequency, Q, switch.
QString shown(EqWidgetIem* item)
{
    return u"%1 %2 %3 %4 %5"_s.arg(part<ComboBoxS1M3>(item, "comboBoxType"_L1)->currentIndex())
        .arg(double(part<DialS1M5>(item, "dialGain"_L1)->value()))
        .arg(double(part<DialS1M5>(item, "dialFreq"_L1)->value()))
        .arg(double(part<DialS1M5>(item, "dialQ"_L1)->value()))
        .arg(int(part<QCheckBox>(item, "checkBoxSwitch"_L1)->isChecked()));
}

} // namespace

class TestBandEditor : public QObject
{
    Q_OBJECT

private:
    struct Editor {
        QWidget window;
        QPushButton before{&window};
        EqualizerControllerS1M1 controller{&window};
        QPushButton after{&window};
        QSignalSpy records{&controller, &EqualizerControllerS1M1::itemDataChanged};
        QSignalSpy counts{&controller, &EqualizerControllerS1M1::ItemCountChanged};
        QSignalSpy events{&controller, &EqualizerControllerS1M1::attributeChanged};

        explicit Editor(int count)
        {
            window.resize(700, 260);
            before.setGeometry(0, 0, 50, 20);
            controller.setGeometry(0, 20, 700, 240);
            controller.setObjectName(u"EQ_HP"_s);
            controller.setItemCount(count);
        }
        void show()
        {
            window.show();
            window.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&window));
        }
        EqWidgetIem* item(int band) { return controller.findChild<EqWidgetIem*>(u"item%1"_s.arg(band)); }
        QWidget* focused() { return window.focusWidget(); }
    };

    static Record record(const QString& type, float gain)
    {
        return {.index = 1, .type = type, .gain = gain, .frequency = 100, .q = 2, .enabled = true};
    }

private slots:
    void initTestCase() { quillon::installControlAccessibility(); }

    void countsAreClamped()
    {
        Editor editor(3);
        for (const auto& [asked, becomes] : {std::pair{40, 32}, {32, 32}, {2, 2}, {-1, 0}, {0, 0}, {5, 5}}) {
            editor.counts.clear();
            editor.controller.setItemCount(asked);
            QCOMPARE(editor.controller.items().size(), becomes);
            QCOMPARE(editor.counts.count(), 1);
            QCOMPARE(editor.counts[0][0].toInt(), becomes);
        }
        editor.controller.setItems(QList<Record>(33));
        QCOMPARE(editor.controller.items().size(), 32);
        QCOMPARE(editor.records.count() + editor.events.count(), 0);
    }

    /// A hand on a control of band 2: what the device hears, and the mask that the curves get.
    void changesAreTold_data()
    {
        QTest::addColumn<Record>("start");
        QTest::addColumn<Hand>("hand");
        QTest::addColumn<QString>("told");
        QTest::addColumn<int>("mask");
        const auto pressed = [](QLatin1StringView name, Qt::Key key) {
            return Hand([=](EqWidgetIem* item) { QTest::keyClick(part<QWidget>(item, name), key); });
        };
        const auto chosen = [](int type) { return Hand([=](EqWidgetIem* item) { choose(item, type); }); };
        const auto typed = [](QLatin1StringView name, const QString& text) {
            return Hand([=](EqWidgetIem* item) {
                typeInto(part<DialS1M5>(item, name), text);
                QTest::keyClick(part<QWidget>(item, name)->findChild<QLineEdit*>(), Qt::Key_Return);
            });
        };
        const Record flat = record(u"0"_s, 6);
        const Record pass = record(u"1"_s, 6);
        QTest::newRow("lowpass takes the gain away") << flat << chosen(1) << u"EQ_HP@2 Type=1, EQ_HP@2 Gain=0"_s << 3;
        QTest::newRow("highpass without gain") << record(u"1"_s, 0) << chosen(2) << u"EQ_HP@2 Type=2"_s << 1;
        QTest::newRow("shelf keeps it") << flat << chosen(4) << u"EQ_HP@2 Type=4"_s << 1;
        QTest::newRow("same type") << flat << chosen(0) << QString() << 0;
        QTest::newRow("same pass with a gain from outside") << pass << chosen(1) << u"EQ_HP@2 Gain=0"_s << 2;
        QTest::newRow("gain") << flat << pressed("dialGain"_L1, Qt::Key_Up) << u"EQ_HP@2 Gain=7"_s << 2;
        QTest::newRow("next of the list") << flat << pressed("dialFreq"_L1, Qt::Key_Up) << u"EQ_HP@2 Freq=105"_s << 4;
        QTest::newRow("Q") << flat << pressed("dialQ"_L1, Qt::Key_Up) << u"EQ_HP@2 Q=2.2737"_s << 8;
        QTest::newRow("switch") << flat << pressed("checkBoxSwitch"_L1, Qt::Key_Space) << u"EQ_HP@2 Switch=0"_s << 16;
        QTest::newRow("typed, off the list") << flat << typed("dialFreq"_L1, u"12345"_s) << u"EQ_HP@2 Freq=12345"_s << 4;
        QTest::newRow("typed, a cut") << flat << typed("dialGain"_L1, u"-4.5"_s) << u"EQ_HP@2 Gain=-4.5"_s << 2;
        QTest::newRow("typed, six digits") << flat << typed("dialQ"_L1, u"1.125"_s) << u"EQ_HP@2 Q=1.125"_s << 8;
        QTest::newRow("typed, the same") << flat << typed("dialFreq"_L1, u"100"_s) << QString() << 0;
    }
    void changesAreTold()
    {
        QFETCH(Record, start);
        Editor editor(3);
        editor.controller.setItems({Record(), start, Record()});
        editor.show();
        QFETCH(Hand, hand);
        hand(editor.item(2));
        QTEST(told(editor.events), "told");
        QCOMPARE(editor.records.count(), 1);
        QCOMPARE(editor.records[0][0].toString(), u"2"_s);
        QTEST(int(editor.records[0][1].value<Record>().changed), "mask");
        QCOMPARE(editor.controller.items()[1].changed, 0);
        const int type = editor.controller.items()[1].type.toInt();
        QCOMPARE(part<QWidget>(editor.item(2), "dialGain"_L1)->isEnabled(), type != 1 && type != 2);
    }

    void whatComesFromOutsideIsSilent_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("attribute");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("shows");
        QTest::addColumn<bool>("refused");
        const QString same = u"0 6 100 2 1"_s;
        QTest::newRow("type") << u"2"_s << u"Type"_s << u"2"_s << u"2 6 100 2 1"_s << false;
        QTest::newRow("gain") << u"2"_s << u"Gain"_s << u"-3.5"_s << u"0 -3.5 100 2 1"_s << false;
        QTest::newRow("gain beyond the dial") << u"2"_s << u"Gain"_s << u"50"_s << u"0 12 100 2 1"_s << false;
        QTest::newRow("frequency off the list") << u"2"_s << u"Freq"_s << u"1000"_s << u"0 6 1000 2 1"_s << false;
        QTest::newRow("Q") << u"2"_s << u"Q"_s << u"0.7"_s << u"0 6 100 0.7 1"_s << false;
        QTest::newRow("switch") << u"2"_s << u"Switch"_s << u"0"_s << u"0 6 100 2 0"_s << false;
        QTest::newRow("no such attribute") << u"2"_s << u"Volume"_s << u"5"_s << same << false;
        QTest::newRow("no number") << u"2"_s << u"Freq"_s << u"loud"_s << same << true;
        QTest::newRow("not finite") << u"2"_s << u"Gain"_s << u"nan"_s << same << true;
        QTest::newRow("no type") << u"2"_s << u"Type"_s << u""_s << same << true;
        QTest::newRow("half a type") << u"2"_s << u"Type"_s << u"1.5"_s << same << true;
        QTest::newRow("another type") << u"2"_s << u"Type"_s << u"7"_s << u"-1 6 100 2 1"_s << false;
        for (const auto& number : {u"0"_s, u"4"_s, u"33"_s, u"-1"_s, u"two"_s, u""_s}) {
            QTest::addRow("band '%ls'", qUtf16Printable(number)) << number << u"Gain"_s << u"1"_s << same << false;
        }
    }
    void whatComesFromOutsideIsSilent()
    {
        Editor editor(3);
        editor.controller.setItems(QList<Record>(3, record(u"0"_s, 6)));
        editor.counts.clear();
        QFETCH(bool, refused);
        if (refused) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"EqWidgetIem::setAttribute"_s));
        }
        QFETCH(QString, number);
        QFETCH(QString, attribute);
        QFETCH(QString, value);
        const QList<Record> before = editor.controller.items();
        editor.controller.setItemAttribute(number, attribute, value);
        QTEST(shown(editor.item(2)), "shows");
        QCOMPARE(editor.events.count() + editor.records.count() + editor.counts.count(), 0);
        QList<Record> after = editor.controller.items();
        QCOMPARE(after[1].changed, 0);
        QFETCH(QString, shows);
        QCOMPARE(after[1] != before[1], shows != u"0 6 100 2 1"_s);
        after[1] = before[1];
        QCOMPARE(after, before);
    }

    void aNewColumnIsNotItsRecord()
    {
        Editor editor(2);
        const Record fresh = editor.controller.items()[1];
        QCOMPARE(fresh, (Record{.index = 1, .frequency = 1000, .q = 0.699999988F}));
        const QString start = shown(editor.item(2));
        QCOMPARE(start, u"0 0 632 0.707 1"_s);
        editor.controller.setItems({Record(), record(u"1"_s, 6)});
        QCOMPARE(shown(editor.item(2)), u"1 6 100 2 1"_s);
        editor.controller.setItemCount(1);
        editor.controller.setItemCount(2);
        QCOMPARE(editor.controller.items()[1], fresh);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(shown(editor.item(2)), start);
        QVERIFY(part<QWidget>(editor.item(2), "dialGain"_L1)->isEnabled());
    }

    /// An open editor gives up what was typed when its column goes.
    void aColumnThatGoesIsSilent()
    {
        Editor editor(2);
        editor.show();
        typeInto(part<DialS1M5>(editor.item(2), "dialFreq"_L1), u"500"_s);
        editor.controller.setItemCount(1);
        QCOMPARE(told(editor.events), QString());
        QCOMPARE(editor.records.count(), 0);
    }

    void looksTellNothing()
    {
        Editor editor(3);
        editor.controller.setItems(QList<Record>(3, record(u"2"_s, 6)));
        editor.show();
        editor.counts.clear();
        for (double factor : {0.5, 2.0, 1.0}) {
            editor.controller.setScaleFactor(factor);
            QCOMPARE(editor.item(3)->width(), int(54 * factor));
            QCOMPARE(editor.item(3)->x(), 2 * (editor.item(3)->width() + 3)); // 3 is 0.5 % of 700
        }
        for (double factor : {0.0, -1.0, double(INFINITY), double(NAN)}) {
            editor.controller.setScaleFactor(factor);
            QCOMPARE(editor.item(3)->width(), 54);
        }
        editor.controller.setLanguage(u"Chinese"_s);
        editor.controller.setLanguage(u"Klingon"_s);
        editor.controller.setItemCount(4);
        QCOMPARE(editor.events.count() + editor.records.count(), 0);
        QCOMPARE(part<ComboBoxS1M3>(editor.item(1), "comboBoxType"_L1)->currentText(), u"高通"_s);
        QCOMPARE(part<QWidget>(editor.item(4), "dialGain"_L1)->accessibleName(), u"频段 4 增益"_s);
        QCOMPARE(editor.controller.findChild<QLabel*>(u"labelQ"_s)->text(), u"Q值"_s);
        editor.controller.setLanguage(u"English"_s);
        QCOMPARE(part<QWidget>(editor.item(3), "dialGain"_L1)->accessibleName(), u"Band 3 Gain"_s);
        QCOMPARE(part<ComboBoxS1M3>(editor.item(1), "comboBoxType"_L1)->currentText(), u"highpass"_s);
    }

    /// Tab goes through the columns in their order, also those that came later, and takes the row along.
    void tabWalksTheColumns()
    {
        Editor editor(3);
        editor.show();
        editor.controller.setItemCount(20);
        auto* bar = editor.controller.findChild<QScrollArea*>()->horizontalScrollBar();
        QVERIFY(bar->maximum() > 0);
        editor.before.setFocus();
        for (int band = 1; band <= 20; ++band) {
            for (const auto name : {"comboBoxType"_L1, "dialGain"_L1, "dialFreq"_L1, "dialQ"_L1, "checkBoxSwitch"_L1}) {
                QTest::keyClick(editor.focused(), Qt::Key_Tab);
                QCOMPARE(editor.focused(), part<QWidget>(editor.item(band), name));
                const QRect seen = editor.focused()->visibleRegion().boundingRect();
                QCOMPARE(seen.size(), editor.focused()->size());
            }
        }
        QTest::keyClick(editor.focused(), Qt::Key_Tab);
        QCOMPARE(editor.focused(), &editor.after);
        bar->setValue(0);
        QTest::keyClick(editor.focused(), Qt::Key_Tab, Qt::ShiftModifier);
        QCOMPARE(bar->value(), bar->maximum());
    }

    void theWheelGoesWhereItBegan()
    {
        Editor editor(20);
        editor.controller.setItems(QList<Record>(20));
        editor.show();
        auto* bar = editor.controller.findChild<QScrollArea*>()->horizontalScrollBar();
        auto* dial = part<DialS1M5>(editor.item(5), "dialGain"_L1);
        QVERIFY(turn(dial, 120));
        QCOMPARE(dial->value(), 0.5F);
        QCOMPARE(bar->value(), 0);
        // What slides under a pointer that scrolls leaves the wheel to the row.
        QWidget* row = editor.controller.findChild<QScrollArea*>()->viewport();
        const QPointF pointer = row->mapToGlobal(QPointF(500, 30));
        QVERIFY(turn(row, -120, pointer));
        QCOMPARE(bar->value(), 120);
        QVERIFY(!turn(part<DialS1M5>(editor.item(9), "dialGain"_L1), -120, pointer));
        QCOMPARE(editor.controller.items()[8].gain, 0.0F);
    }
};

QTEST_MAIN(TestBandEditor)
#include "tst_bandeditor.moc"
