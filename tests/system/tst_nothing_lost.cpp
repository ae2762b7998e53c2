// Ten thousand movements of the user's and of the unit's on each page; then the console is closed and started again. What is in the
// workspace, what the device holds, before and after, are the same; and so is what a device that has forgotten everything is told.

#include "PageHands.h"
#include "PageOnWire.h"

#include "controls/ToolButtonS1M1.h"

#include <QDir>
#include <QTimer>

using quillon::PageId;

namespace
{

constexpr int kEvents = 10000;
constexpr int kUnitShare = 20; // one in so many is the unit's

/// What leads away from the page, waits for an answer, or changes at the unit what it does not report.
const QRegularExpression kOffLimits("TitleButton|FieldHead|AUTO|Professional|Load|QSplitterHandle");

class Hands
{
public:
    Hands(Console& console, PageId page, quint32 seed) : mConsole(console), mPage(page), mRandom(seed) {}

    int below(int end) { return int(mRandom.bounded(end)); }

    void use()
    {
        if (mUses++ % 200 == 0 || mControls.isEmpty()) {
            refresh();
        }
        QWidget* widget = mControls[below(int(mControls.size()))];
        auto* button = qobject_cast<QPushButton*>(widget);
        if (button && (button->objectName() == "pushButtonClose" || button->objectName().startsWith("pushButton_") ||
                       button->objectName() == "pushButtonAddition")) {
            useVisibility(button);
        } else if (widget->isVisible() && widget->isEnabled()) {
            useShown(widget);
        }
    }

    /// Turns something of the unit's own that the page shows.
    void turnUnit()
    {
        const char* blocks[] = {"21", "22", "23", "25", "27"};
        const int strip = below(7);
        const QString object = strip < 5 ? QLatin1StringView(kStrips[strip]) : strip == 5 ? u"Output_HP"_s : u"Output_OTGOUT"_s;
        auto* widget = mConsole.window().findChild<QStackedWidget*>()->currentWidget()->findChild<QWidget*>(object);
        if (!widget->isVisible()) {
            return;
        }
        const auto panel = [&](const char* attribute, const QString& value) {
            mConsole.unit().ask(u"panel %1 %2 %3"_s.arg(object, QLatin1StringView(attribute), value));
        };
        const bool microphone = strip < 2;
        const bool wide = strip == 2 || strip == 5;
        switch (below(strip == 0 ? 5 : strip == 1 ? 4 : 3)) {
        case 0:
            panel("GAIN", QString::number(microphone ? below(89) : wide ? below(100) - 90 : below(90) - 89));
            break;
        case 1:
            panel("MUTE", QString::number(below(2)));
            break;
        case 2:
            if (strip < 5) {
                mConsole.unit().ask(u"frame %1 %2"_s.arg(QLatin1StringView(blocks[strip]) + u"01"_s).arg(-below(700)));
            } else if (mPage == quillon::PageLive || mPage == quillon::PageMble) {
                mConsole.unit().ask(u"panel Ducking DuckingSwitch %1"_s.arg(below(2)));
            }
            break;
        case 3:
            panel("48V", QString::number(below(2)));
            break;
        case 4:
            panel("MIC", QStringList{"Mic1", "Mic35", "MicHP"}[below(3)]);
            break;
        }
    }

private:
    void refresh()
    {
        mControls = controlsOf(mConsole.window());
        mControls.removeIf([](QWidget* widget) { return pathOf(widget).contains(kOffLimits); });
    }
    void useVisibility(QPushButton* button)
    {
        const bool closes = button->objectName() == "pushButtonClose";
        const QString path = pathOf(button);
        const bool stays = path.contains("Ducking_IN") ||
                           ((mPage == quillon::PageLive || mPage == quillon::PageProf) && path.startsWith("Input_"));
        // Rarely: what is put away can not be moved. The button shows when the pointer rests on the strip's name.
        if (closes && !stays && button->parentWidget()->isVisible() && below(6) == 0) {
            button->click();
        } else if (!closes && button->isVisible()) {
            move(button, Hand::Click, 0);
        }
    }
    void useShown(QWidget* widget)
    {
        if (valueOf(widget)) {
            const Hand hands[] = {Hand::Wheel, Hand::Key, Hand::DragUp, Hand::DragRight, Hand::Double};
            const Hand hand = hands[below(5)];
            const int keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_PageDown};
            move(widget, hand, hand == Hand::Key ? keys[below(6)] : below(61) - 30);
        } else if (auto* editor = qobject_cast<QLineEdit*>(widget)) {
            const bool name = editor->objectName() == "lineEdit";
            typeInto(editor, name ? QStringList{"Vox", "Git", ""}[below(3)] : QString::number(below(100) - 90));
        } else if (auto* tool = qobject_cast<ToolButtonS1M1*>(widget->parentWidget())) {
            QList<QAction*> sources = tool->findChildren<QAction*>();
            sources.removeIf([](QAction* action) { return action->menu() || action->isSeparator() || action->text().isEmpty(); });
            sources[below(int(sources.size()))]->trigger();
        } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            below(3) ? button->click() : move(widget, below(2) ? Hand::Click : Hand::Space, 0);
        }
    }

    Console& mConsole;
    PageId mPage;
    QRandomGenerator mRandom;
    QList<QWidget*> mControls;
    int mUses = 0;
};

} // namespace

class tst_nothing_lost : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void afterTenThousandEvents_data();
    void afterTenThousandEvents();

private:
    QTemporaryDir mFolder{wire::quickFolder()};
};

void tst_nothing_lost::initTestCase()
{
    loadLibraries();
}

void tst_nothing_lost::afterTenThousandEvents_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("mode");
    QTest::addColumn<quint32>("seed");
    QTest::newRow("Mobile") << int(quillon::PageMble) << 1 << 4701u;
    QTest::newRow("Live") << int(quillon::PageLive) << 2 << 4702u;
    QTest::newRow("Easy") << int(quillon::PageTyro) << 2 << 4703u;
    QTest::newRow("Pro") << int(quillon::PageProf) << 3 << 4704u;
}

void tst_nothing_lost::afterTenThousandEvents()
{
    QFETCH(const int, page);
    QFETCH(const int, mode);
    QFETCH(const quint32, seed);
    wire::beginTest(mFolder);
    QSettings().setValue(quillon::kPageIdKey, page);

    Console console({"--rate", "0", "--mode", QString::number(mode)});
    QCOMPARE(console.window().pageId(), page);
    if (page == quillon::PageLive || page == quillon::PageMble) {
        console.window().findChild<QWidget*>("Ducking")->show();
    }
    qInfo("seed %u", seed);
    QMap<QString, QSet<QString>> told; // values by code
    Hands hands(console, PageId(page), seed);
    for (int event = 0; event < kEvents && !QTest::currentTestFailed();) {
        const int batch = 1 + hands.below(2 * kUnitShare);
        for (int i = 0; i < batch; ++i) {
            hands.use();
        }
        QCoreApplication::processEvents();
        // The console and the unit are not turned at the same moment.
        for (const QString& frame : console.sent()) {
            told[frame.section(u' ', 0, 0)] += frame.section(u' ', 1);
        }
        hands.turnUnit();
        console.hear();
        event += batch + 1;
        if (event / 1000 != (event - batch - 1) / 1000) {
            const wire::Values workspace = wire::workspaceSays(PageId(page));
            console.sent();
            const QStringList wrong = wire::differences(wire::deviceSays(console, workspace), workspace);
            QVERIFY2(wrong.isEmpty(), qPrintable(u"after %1 events: %2"_s.arg(event).arg(wrong.join(u", "))));
        }
    }
    QTest::qWait(600); // a click that could have become a double one, and what is measured by rest
    console.sent();
    QStringList missing;
    const wire::Values workspace = wire::workspaceSays(PageId(page), &missing);
    QCOMPARE(missing, QStringList());
    const wire::Values before = wire::deviceSays(console, workspace);
    QCOMPARE(wire::differences(before, workspace).join(u'\n'), QString());

    // All of it was moved; of the mixes, what goes straight through each.
    QMap<QString, int> moved;
    for (const QString& code : workspace.keys()) {
        const bool mix = code.startsWith(u'3');
        QVERIFY2(mix || told[code].size() > 1, qPrintable(code));
        if (mix) {
            moved[code.left(2)] += told[code].size() > 1;
        }
    }
    for (const auto& [block, codes] : moved.asKeyValueRange()) {
        QVERIFY2(codes > 1, qPrintable(block));
    }

    console.close();
    WorkspaceSubject::instance().close();
    console.open();
    QCOMPARE(console.window().pageId(), page);
    console.sent();
    QCOMPARE(wire::workspaceSays(PageId(page)), workspace);
    QCOMPARE(wire::differences(wire::deviceSays(console, workspace), before).join(u'\n'), QString());

    // A device that has forgotten everything.
    emit WorkspaceSubject::instance().attributeChanged("SettingsDevice", "RestoreDefault", "1");
    console.sent();
    QVERIFY(wire::differences(wire::deviceSays(console, workspace), workspace).size() == workspace.size());
    console.close();
    WorkspaceSubject::instance().close();
    console.open();
    console.sent();
    QCOMPARE(wire::differences(wire::deviceSays(console, workspace), workspace).join(u'\n'), QString());
}

QTEST_MAIN(tst_nothing_lost)
#include "tst_nothing_lost.moc"
