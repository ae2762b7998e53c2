#include "InputBench.h"
#include "controls/ButtonBoxS1M1.h"
#include "strips/field/FieldOriginS2M1.h"
#include "strips/input/InputS2M1.h"
#include "strips/input/InputS2M2.h"
#include "tests/controls/Hands.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class tst_field : public QObject
{
    Q_OBJECT
private slots:
    void freshWorkspaceShowsAll()
    {
        bench::LiveInputs page;
        page.load();
        QCOMPARE(page.field.visibleList().size(), 5);
        QVERIFY(page.workspace.value(u"FieldInput"_s, u"FieldInput"_s).toBool());
        QCOMPARE(page.record.attributes().first(), u"Save_SoloState"_s);
        QVERIFY(page.field.findChild<ButtonBoxS1M1*>()->isHidden());

        page.workspace.reopen(u"second"_s);
        page.field.setVisibleListDefault({u"AUX"_s, u"IN 1"_s, u"nobody"_s});
        page.load();
        QCOMPARE(page.field.visibleList(), QStringList({u"IN 1"_s, u"AUX"_s})); // the row's order
    }

    void hideAndAdd()
    {
        bench::LiveInputs page;
        page.load();
        QSignalSpy events(&page.field, &FieldInputBase1::attributeChanged);
        auto* box = page.field.findChild<ButtonBoxS1M1*>();
        page.hide(1);
        page.hide(1); // is hidden already
        emit page.list[0]->attributeChanged(u"nobody"_s, u"Hide"_s, u"1"_s);
        QCOMPARE(box->names(), QStringList{u"IN 2"_s});
        QVERIFY(page.list[1]->isHidden() && !page.list[1]->isStripEnabled());
        QCOMPARE(page.workspace.value(u"FieldInput"_s, u"Visible"_s).toStringList().size(), 4);
        QStringList told;
        for (const QList<QVariant>& event : events) {
            if (event[1] == u"Visible"_s || event[1] == u"Hide"_s) {
                told += event[0].toString() + event[2].toString();
            }
        }
        QCOMPARE(told, QStringList{u"IN 20"_s});

        page.load(); // hidden stays hidden
        QVERIFY(page.list[1]->isHidden());
        page.add(u"IN 2"_s);
        QVERIFY(box->isEmpty() && box->isHidden());
        QVERIFY(!page.list[1]->isHidden() && page.list[1]->isStripEnabled());
        QCOMPARE(page.workspace.value(u"FieldInput"_s, u"Visible"_s).toStringList().size(), 5);
    }

    // No strip at all is a choice as well: it is not a workspace without a choice.
    void allHidden()
    {
        bench::LiveInputs page;
        page.load();
        for (qsizetype i = 0; i < 5; ++i) {
            page.hide(i);
        }
        page.load();
        QVERIFY(page.field.visibleList().isEmpty());
        page.workspace.file().remove(u"FieldInput/Visible"_s);
        page.load();
        QCOMPARE(page.field.visibleList().size(), 5);
    }

    void countsThatDoNotFit()
    {
        bench::LiveInputs page;
        page.load();
        for (const auto& [stored, told] : {std::pair{u"-3"_s, 0}, {u"2147483647"_s, 5}, {u"many"_s, 0}, {u"2"_s, 2}}) {
            page.workspace.file().setValue(u"FieldInput/SoloState"_s, stored);
            page.load();
            QCOMPARE(page.field.soloCount(), told);
            QCOMPARE(page.list[1]->getMute(), told != 0);
            bench::button(*page.list[0], "SOLO")->click();
            bench::button(*page.list[0], "SOLO")->click(); // with no solo left the field is free again
            QCOMPARE(page.field.soloCount(), 0);
            QVERIFY(std::ranges::none_of(page.list, [](const InputBase* strip) { return strip->getMute(); }));
        }
        page.workspace.file().setValue(u"Input_AUX/SOLO"_s, true); // and a solo without its count
        page.load();
        bench::button(*page.list[2], "SOLO")->click();
        QCOMPARE(page.field.soloCount(), 0);
        QVERIFY(!page.list[0]->getMute());
    }

    void layout()
    {
        for (const QSize size : {QSize(550, 322), QSize(1100, 645), QSize(2200, 1290), QSize(500, 645), QSize(1100, 60)}) {
            bench::LiveInputs page;
            page.load();
            page.hide(4);
            page.field.resize(size);
            page.field.show();
            auto* area = page.field.findChild<QScrollArea*>();
            auto* box = page.field.findChild<ButtonBoxS1M1*>();
            int x = 0;
            for (qsizetype i = 0; i < 4; ++i) {
                const QRect r = page.list[i]->geometry();
                const QSize least = page.list[i]->minimumSize();
                QVERIFY(r.left() > x || (size.height() < 100 && r.left() >= x));
                QVERIFY(r.height() >= least.height());
                QVERIFY(qAbs(double(r.width()) / r.height() - double(least.width()) / least.height()) < 0.01);
                x = r.right();
            }
            QVERIFY(box->x() > x && box->isVisible());
            QScrollBar* bar = area->horizontalScrollBar();
            QCOMPARE(bar->maximum() > 0, box->geometry().right() >= area->width());
            QCOMPARE(bar->styleSheet().contains(u"rgb(161, 161, 161)"_s), bar->maximum() > 0);
            QVERIFY(page.field.minimumWidth() > 2 * page.list[0]->width());
            QVERIFY(bar->maximum() == 0 || (turn(area->viewport(), -120) && bar->value() > 0));
        }
    }

    // A column is a row with width and height exchanged.
    void column()
    {
        quillon::initResources();
        bench::OpenWorkspace workspace;
        FieldOriginS2M1 field(u"FieldColumn"_s);
        InputS2M1 microphone(u"Input_IN1"_s, &field);
        InputS2M2 stereo(u"Input_AUX"_s, &field);
        InputS2M1 last(u"Input_IN2"_s, &field);
        microphone.setChannelName(u"IN 1"_s);
        workspace.attach(field);
        field.setWidgetList({&microphone, &stereo, &last});
        field.loadSettings();
        for (const QSize size : {QSize(300, 400), QSize(600, 220)}) {
            field.resize(size);
            field.show();
            auto* bar = field.findChild<QScrollArea*>()->verticalScrollBar();
            const QRect upper = microphone.geometry();
            const QRect lower = stereo.geometry();
            QVERIFY(upper.top() > 0 && lower.top() > upper.bottom() && lower.left() == upper.left());
            QCOMPARE(lower.width(), upper.width());
            QVERIFY(upper.width() > size.width() * 9 / 10 && upper.right() < size.width());
            QVERIFY(qAbs(upper.width() * 60.0 / 226 - upper.height()) < 2);
            QCOMPARE(bar->maximum() > 0, last.geometry().bottom() >= field.height());
            QVERIFY(bar->maximum() == 0 || (turn(field.findChild<QScrollArea*>()->viewport(), -120) && bar->value() > 0));
        }
        emit stereo.attributeChanged(u"AUX"_s, u"Hide"_s, u"1"_s);
        auto* box = field.findChild<ButtonBoxS1M1*>();
        QVERIFY(box->isVisible() && box->y() > last.geometry().bottom());
        last.setParent(nullptr);
        microphone.setParent(nullptr);
        stereo.setParent(nullptr);
    }
};

QTEST_MAIN(tst_field)
#include "tst_field.moc"
