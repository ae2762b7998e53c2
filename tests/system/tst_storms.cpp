// Cables that are pulled and put back again and again, at every moment, and devices that talk nonsense or stop in the middle. Each
// storm has a program and a device of its own; all blow at once, so that one waits while another works.

#include "Stage.h"

#include <array>
#include <memory>

namespace
{

constexpr int kCycles = 50;

// What the sound man has set at the unit; every storm has to leave it as it is.
const QMap<QString, int> kSound{{"2104", 40}, {"2105", 1}, {"2203", 1}, {"2304", 69}, {"2505", 1}};
constexpr const char* kSoundOnPanel[] = {"Input_IN1 GAIN 40", "Input_IN1 MUTE 1", "Input_IN2 48V 1", "Input_AUX GAIN -6",
                                         "Input_BT MUTE 1"};

using Lines = QStringList;

struct Storm {
    const char* name;
    Lines before; // told to the unit while the program is not there yet
    bool console; // it begins with a console that stands
    Lines strike; // one cycle
    QString sign; // what shows that the program has come back into the state of this storm; empty: it has no outward sign
    Lines after;  // makes the device a good one again, unplugged
};

const Lines kReplug{"unplug", "clear", "plug"};
const Lines kBurst(2, "frame 1101 2");

const std::array<Storm, 6> kStorms{{
    {"polling", {"unplug"}, false, {"plug", "ping", "unplug"}, {}, {}},
    {"connecting", {"silence on"}, false, kReplug, "wait 1101 any", {"silence off", "unplug"}},
    {"full meters", {"rate 100"}, true, kReplug, "wait 1120 0", {"unplug"}},
    {"loading", {}, true, Lines{"clear"} + kBurst + Lines{"wait 1120 1"} + kReplug, "wait 1120 0", {"unplug"}},
    {"without HID", {"hid off"}, false, {"unplug", "plug", "unplug", "plug"}, {}, {"unplug", "hid on"}},
    {"two devices", {"plug 2"}, false, {"unplug", "plug 2"}, {}, {"unplug"}},
}};

void tell(Stage& stage, const Lines& lines)
{
    for (const QString& line : lines)
        stage.unit().ask(line);
}

/// A program whose workspace holds the sound.
std::unique_ptr<Stage> makeSound()
{
    auto stage = std::make_unique<Stage>();
    if (!stage->start() || !stage->waitForPage())
        return nullptr;
    for (const char* turn : kSoundOnPanel)
        stage->unit().ask(QString("panel ") + turn);
    const bool kept = eventually([&] { return stage->stored("Input_BT/MUTE").toBool(); });
    return kept && stage->quit() == 0 ? std::move(stage) : nullptr;
}

/// After the last plug: the hello, the page with the sound, and nothing else.
void checkConsole(Stage& stage)
{
    const bool came = stage.waitForPage();
    QStringList sent = stage.sent();
    QVERIFY2(came, qPrintable("no page: " + sent.join(", ") + stage.unit().ask("state").left(300)));
    while (sent.size() > 1 && sent[0] == "1101 1" && sent[1] == "1101 1")
        sent.removeFirst(); // an answer that the unit's own levels have pushed out is asked for again
    QCOMPARE(sent, QStringList{"1101 1"} + livePage(kSound));
}

void checkEnd(Stage& stage, const QByteArray& workspace)
{
    QCOMPARE(stage.quit(), 0);
    QCOMPARE(stage.workspaceBytes(), workspace);
    QCOMPARE(stage.troubles(kDriverTrouble), QStringList());
}

} // namespace

class tst_storms : public QObject
{
    Q_OBJECT
private slots:
    void plugsInEveryState();
    void nonsenseIsNotHeard();
    void aDeviceThatStops_data();
    void aDeviceThatStops();
};

void tst_storms::plugsInEveryState()
{
    std::array<std::unique_ptr<Stage>, kStorms.size()> stages;
    std::array<QByteArray, kStorms.size()> workspaces;
    for (std::size_t i = 0; i < kStorms.size(); ++i) {
        stages[i] = makeSound();
        QVERIFY2(stages[i], kStorms[i].name);
        workspaces[i] = stages[i]->workspaceBytes();
        tell(*stages[i], kStorms[i].before);
        QVERIFY(stages[i]->start());
        QVERIFY(!kStorms[i].console || stages[i]->waitForPage());
    }
    for (int cycle = 0; cycle < kCycles; ++cycle) {
        for (std::size_t i = 0; i < kStorms.size(); ++i)
            tell(*stages[i], kStorms[i].strike);
        for (std::size_t i = 0; i < kStorms.size(); ++i)
            if (!kStorms[i].sign.isEmpty())
                QVERIFY2(stages[i]->unit().tell(QString("%1 %2").arg(kStorms[i].sign).arg(kConsoleMs)),
                         qPrintable(QString("%1, cycle %2, program %3, %4")
                                        .arg(kStorms[i].name)
                                        .arg(cycle)
                                        .arg(stages[i]->program().state())
                                        .arg(stages[i]->sent().join(", "))));
    }
    for (std::size_t i = 0; i < kStorms.size(); ++i)
        tell(*stages[i], kStorms[i].after);
    // Without HID only a look at the driver's list, twice a second, tells that the device is away.
    QTest::qWait(1000 * kPatience);
    for (std::size_t i = 0; i < kStorms.size(); ++i) {
        stages[i]->mark();
        tell(*stages[i], {"plug"});
        checkConsole(*stages[i]);
        if (!QTest::currentTestFailed())
            checkEnd(*stages[i], workspaces[i]);
        if (QTest::currentTestFailed())
            QFAIL(kStorms[i].name);
    }
}

void tst_storms::nonsenseIsNotHeard()
{
    const auto stage = makeSound();
    QVERIFY(stage);
    const QByteArray workspace = stage->workspaceBytes();
    QVERIFY(stage->start());
    QVERIFY(stage->waitForPage());
    for (const char* nonsense : {"garbage 10000", "short 10000"}) {
        stage->mark();
        tell(*stage, {nonsense});
        // It is read in order: what comes behind it shows that all of it was, and the page that nothing of it was taken.
        tell(*stage, {"frame 1101 2"});
        QVERIFY(stage->waitForPage());
        QCOMPARE(stage->sent().join(" | "), livePage(kSound).join(" | "));
    }
    tell(*stage, {"garbage 10000", "unplug"});
    stage->mark();
    tell(*stage, {"plug"});
    checkConsole(*stage);
    checkEnd(*stage, workspace);
}

void tst_storms::aDeviceThatStops_data()
{
    QTest::addColumn<QStringList>("strike");
    QTest::addColumn<QStringList>("after");
    const Lines load(6, "frame 1101 2");
    QTest::newRow("stalled with much to say") << Lines{"stall on"} + load + Lines{"unplug"} << Lines{"stall off"};
    QTest::newRow("stalled") << Lines{"stall on", "unplug"} << Lines{"stall off"};
    QTest::newRow("silent") << Lines{"silence on", "unplug"} << Lines{"silence off"};
    QTest::newRow("silent under load") << load + Lines{"silence on", "unplug"} << Lines{"silence off"};
}

void tst_storms::aDeviceThatStops()
{
    QFETCH(const QStringList, strike);
    QFETCH(const QStringList, after);
    const auto stage = makeSound();
    QVERIFY(stage);
    const QByteArray workspace = stage->workspaceBytes();
    tell(*stage, {"rate 100"});
    QVERIFY(stage->start());
    QVERIFY(stage->waitForPage());
    for (int cycle = 0; cycle < 3; ++cycle) {
        tell(*stage, strike + after);
        stage->mark();
        tell(*stage, {"plug"});
        checkConsole(*stage);
        if (QTest::currentTestFailed())
            return;
    }
    checkEnd(*stage, workspace);
}

QTEST_GUILESS_MAIN(tst_storms)
#include "tst_storms.moc"
