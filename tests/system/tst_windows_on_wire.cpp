// The windows of the equalizers on a real link. What a hand does there reaches the device in its order and once; what the device
// says is shown and told to nobody; a workspace brings back what it keeps.

#include "WindowHands.h"

#include "equalizer/window/CurveButtons.h"
#include "equalizer/window/EqualizerBase.h"

#include <QChartView>
#include <QSplineSeries>

using namespace Qt::StringLiterals;
using wire::handleOf;
using wire::stateOf;

namespace
{

struct Equalizer {
    const char* window;
    const char* strip;
    int bands;
    int block;
    QList<int> sides; // a band's fields are counted on from here, once for each side
    const char* switchCode;
};
const Equalizer kEqualizers[]{{"EQ_IN1", "Input_IN1", 4, 0x9000, {0}, "9b0f"},
                              {"EQ_IN2", "Input_IN2", 4, 0x9000, {5}, "9b10"},
                              {"EQ_HP", "Output_HP", 10, 0xA000, {0, 5}, "ab0f"}};

/// "2=2 3=0", fields and values of a band, as frames.
QStringList bandFrames(const Equalizer& equalizer, int band, const QString& fields)
{
    QStringList frames;
    for (const QString& field : fields.split(u' ', Qt::SkipEmptyParts)) {
        for (const int side : equalizer.sides) {
            const int code = equalizer.block | band << 8 | (field.section(u'=', 0, 0).toInt() + side);
            frames += u"%1 %2"_s.arg(code, 4, 16, QChar(u'0')).arg(field.section(u'=', 1));
        }
    }
    return frames;
}

/// The console with its equalizers.
struct Bench : wire::ProConsole {
    EqualizerBase* equalizer(const char* name) { return window().findChild<EqualizerBase*>(QLatin1StringView(name)); }
    QPushButton* lamp(const char* strip)
    {
        return page()->findChild<QWidget*>(QLatin1StringView(strip))->findChild<QPushButton*>("PushButtonEQ");
    }
    /// Everything that the equalizers show, by "EQ_HP/item3/dialGain".
    QMap<QString, QString> shown()
    {
        QMap<QString, QString> states;
        for (const Equalizer& row : kEqualizers) {
            EqualizerBase* window = equalizer(row.window);
            const QString name = QLatin1StringView(row.window) + u'/';
            for (int band = 1; band <= row.bands; ++band) {
                const QString item = u"item%1"_s.arg(band);
                for (const char* control : {"checkBoxSwitch", "comboBoxType", "dialGain", "dialFreq", "dialQ"}) {
                    states[name + item + u'/' + QLatin1StringView(control)] =
                        stateOf(window->findChild<QWidget*>(item)->findChild<QWidget*>(QLatin1StringView(control)));
                }
            }
            for (const char* control : {"buttonSwitch", "slider", "slider_2"}) {
                if (auto* part = window->findChild<QWidget*>(QLatin1StringView(control))) {
                    states[name + QLatin1StringView(control)] = stateOf(part);
                }
            }
        }
        return states;
    }
};

QString workspaceFile()
{
    const quillon::PageRow& row = *quillon::pageRow(quillon::PageProf);
    WorkspaceSubject::instance().saveWorkspace();
    return QLatin1StringView(row.folder) + u'/' + QLatin1StringView(row.prefix) +
           QSettings().value(WorkspaceSubject::instance().rememberKey()).toString() + u".ini"_s;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString workspaceHas(const QString& key)
{
    return QSettings(workspaceFile(), QSettings::IniFormat).value(key).toString();
}

} // namespace

class tst_windows_on_wire : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { loadLibraries(); }
    void init() { wire::beginTest(mFolder); }
    void bandsReachTheDevice_data();
    void bandsReachTheDevice();
    void theUnitMovesTheWindows();
    void presetsBringTheBandsBack();
    void stripsOpenAndSwitch();
    void faders();
    void theWorkspaceKeepsTheHeadphones();

private:
    QTemporaryDir mFolder{wire::quickFolder()};
};

void tst_windows_on_wire::bandsReachTheDevice_data()
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < int(std::size(kEqualizers)); ++i) {
        QTest::newRow(kEqualizers[i].window) << i;
    }
}

void tst_windows_on_wire::bandsReachTheDevice()
{
    QFETCH(const int, row);
    const Equalizer& equalizer = kEqualizers[row];
    struct Turn {
        const char* control;
        Qt::Key key;
        const char* told;
    };
    const Turn turns[]{{"dialGain", Qt::Key_Up, "3=10"},
                       {"dialFreq", Qt::Key_Up, "4=678"},
                       {"dialQ", Qt::Key_Down, "5=6800"},
                       {"comboBoxType", Qt::Key_Down, "2=2 3=0"}, // lowpass has no gain
                       {"dialGain", Qt::Key_Up, ""},
                       {"comboBoxType", Qt::Key_Down, "2=3"},
                       {"comboBoxType", Qt::Key_Down, "2=4"},
                       {"dialGain", Qt::Key_Down, "3=-10"},
                       {"comboBoxType", Qt::Key_Down, "2=5"},
                       {"comboBoxType", Qt::Key_Down, ""}, // the last one
                       {"checkBoxSwitch", Qt::Key_Space, "1=0"},
                       {"checkBoxSwitch", Qt::Key_Space, "1=1"}};
    struct Walk {
        const char* dial;
        int field;
        float factor;
        int places;
        int first;
        int last;
    };
    const Walk walks[]{
        {"dialGain", 3, 10, 25, -120, 120}, {"dialFreq", 4, 1, 102, 20, 22000}, {"dialQ", 5, 10000, 47, 1000, 150000}};

    Bench bench;
    EqualizerBase* window = bench.equalizer(equalizer.window);
    window->show();
    for (int band = 1; band <= equalizer.bands; ++band) {
        auto* item = window->findChild<QWidget*>(u"item%1"_s.arg(band));
        for (const Turn& turn : turns) {
            QTest::keyClick(handleOf(item->findChild<QWidget*>(QLatin1StringView(turn.control))), turn.key);
            const QStringList sent = bench.console.sent();
            QVERIFY2(sent == bandFrames(equalizer, band, QLatin1StringView(turn.told)),
                     qPrintable(u"band %1 %2 %3: %4"_s.arg(band).arg(turn.control, turn.told, sent.join(u", "))));
        }
    }
    QVERIFY(!window->findChild<QWidget*>(u"item%1"_s.arg(equalizer.bands + 1)));
    turnWheel(handleOf(window->findChild<QWidget*>("item1")->findChild<QWidget*>("dialGain")), 3);
    QCOMPARE(bench.console.sent(), bandFrames(equalizer, 1, u"3=5"_s)); // from -1 dB
    // From end to end, each place of the dial once.
    auto* item = window->findChild<QWidget*>("item4");
    for (const Walk& walk : walks) {
        QWidget* dial = handleOf(item->findChild<QWidget*>(QLatin1StringView(walk.dial)));
        valueOf(dial)->setAccessibleValue(valueOf(dial)->accessibleRange().minimum);
        QStringList wanted = bandFrames(equalizer, 4, u"%1=%2"_s.arg(walk.field).arg(walk.first));
        for (int place = 1; place < walk.places; ++place) {
            QTest::keyClick(dial, Qt::Key_Up);
            const int value = int(float(valueOf(dial)->accessibleValue()) * walk.factor); // 0.1563 goes out as 1562
            wanted += bandFrames(equalizer, 4, u"%1=%2"_s.arg(walk.field).arg(value));
        }
        QTest::keyClick(dial, Qt::Key_Up);
        QCOMPARE(wanted.last().section(u' ', 1).toInt(), walk.last);
        QCOMPARE(bench.console.sent().join(u'\n'), wanted.join(u'\n'));
    }
}

void tst_windows_on_wire::theUnitMovesTheWindows()
{
    struct Report {
        const char* panel;
        const char* shows;
    };
    const Report reports[]{{"EQ_IN1@3 Gain -2.5", "EQ_IN1/item3/dialGain -2.5"},
                           {"EQ_IN1@1 Freq 1026", "EQ_IN1/item1/dialFreq 1026"},
                           {"EQ_IN1@4 Type 1", "EQ_IN1/item4/comboBoxType lowpass"},
                           {"EQ_IN2@2 Gain 12", "EQ_IN2/item2/dialGain 12"},
                           {"EQ_IN2@2 Type 2", "EQ_IN2/item2/comboBoxType highpass"}, // the gain stays as it was told
                           {"EQ_IN2@4 Switch 0", "EQ_IN2/item4/checkBoxSwitch 0"},
                           {"EQ_HP@10 Q 15", "EQ_HP/item10/dialQ 15"},
                           {"EQ_HP@7 Freq 12345", "EQ_HP/item7/dialFreq 12345"}, // is none of the dial's places
                           {"EQ_HP@1 Switch 0", "EQ_HP/item1/checkBoxSwitch 0"},
                           {"EQ_HP@9 Type 4", "EQ_HP/item9/comboBoxType highshelf"},
                           {"EQ_IN1@5 Gain 3", ""},
                           {"EQ_HP@10 Gain 99", "EQ_HP/item10/dialGain 12"},
                           {"EQ_IN1 Switch 1", "EQ_IN1/buttonSwitch 1"},
                           {"EQ_HP Switch 1", "EQ_HP/buttonSwitch 1"},
                           {"EQ_IN2 GainOutput -7", "EQ_IN2/slider -7"},
                           {"EQ_HP GainInput -20", "EQ_HP/slider -20"},
                           {"Output_HP GAIN -30", "EQ_HP/slider_2 -30"}};
    Bench bench;
    for (const Report& report : reports) {
        const QMap<QString, QString> before = bench.shown();
        bench.console.unit().ask(u"panel "_s + QLatin1StringView(report.panel));
        bench.console.hear();
        QStringList changed;
        for (const auto& [control, state] : bench.shown().asKeyValueRange()) {
            changed += before[control] == state ? QStringList{} : QStringList{control + u' ' + state};
        }
        QVERIFY2(changed.join(u", ") == QLatin1StringView(report.shows), qPrintable(report.panel + (": " + changed.join(u", "))));
        QCOMPARE(bench.console.sent(), QStringList());
    }
    QVERIFY(bench.lamp("Input_IN1")->isChecked() && bench.lamp("Output_HP")->isChecked());
    QVERIFY(!bench.lamp("Input_IN2")->isChecked());
}

void tst_windows_on_wire::presetsBringTheBandsBack()
{
    Bench bench;
    const auto press = [&](const QString& command) {
        auto* button = bench.page()->findChild<QAbstractButton*>(u"PushButton"_s + command);
        QVERIFY2(button, qPrintable(command));
        button->click();
    };
    const auto turnAll = [&](int keys) {
        for (const Equalizer& row : kEqualizers) {
            auto* item = bench.equalizer(row.window)->findChild<QWidget*>(u"item%1"_s.arg(row.bands));
            for (const char* dial : {"dialGain", "dialFreq", "dialQ"}) {
                for (int i = 0; i < std::abs(keys); ++i) {
                    QTest::keyClick(handleOf(item->findChild<QWidget*>(QLatin1StringView(dial))),
                                    keys > 0 ? Qt::Key_Up : Qt::Key_Down);
                }
            }
            move(bench.equalizer(row.window)->findChild<QWidget*>("buttonSwitch"), Hand::Space, 0);
        }
    };
    turnAll(3);
    press(u"Save preset1"_s);
    const QMap<QString, QString> kept = bench.shown();
    turnAll(-5);
    QVERIFY(bench.shown() != kept);
    bench.console.sent();
    press(u"Load preset1"_s);
    QCOMPARE(bench.console.sent(), QStringList{"110e 1"});
    bench.console.hear();
    QCOMPARE(bench.shown(), kept);
    QCOMPARE(bench.console.sent(), QStringList());
}

void tst_windows_on_wire::stripsOpenAndSwitch()
{
    Bench bench;
    // A fresh workspace begins without equalizers.
    QCOMPARE(bench.start.filter(QRegularExpression("^[9a]")), (QStringList{"9b0f 0", "9b10 0", "ab0f 0"}));
    for (const Equalizer& row : kEqualizers) {
        EqualizerBase* window = bench.equalizer(row.window);
        QPushButton* lamp = bench.lamp(row.strip);
        auto* button = window->findChild<QAbstractButton*>("buttonSwitch");
        const auto tellsOnly = [&](int on) {
            QCOMPARE(bench.console.sent(), QStringList{QLatin1StringView(row.switchCode) + u" %1"_s.arg(on)});
            QVERIFY(lamp->isChecked() == bool(on) && button->isChecked() == bool(on) && !window->isVisible());
        };
        move(lamp, Hand::Click, 0);
        QTRY_VERIFY(lamp->isChecked()); // when the click can no longer become a double one
        tellsOnly(1);
        move(lamp, Hand::Space, 0);
        tellsOnly(0);
        move(button, Hand::Space, 0);
        tellsOnly(1);
        for (const QList<Hand>& hands : {QList<Hand>{Hand::Click, Hand::Click}, {Hand::Right}}) {
            for (const Hand hand : hands) {
                move(lamp, hand, 0);
            }
            QTRY_VERIFY(window->isVisible());
            QTest::qWait(250); // a click would have shown by now
            QVERIFY(lamp->isChecked());
            move(window->findChild<QWidget*>("buttonClose"), Hand::Click, 0);
            QVERIFY(!window->isVisible());
        }
        QCOMPARE(bench.console.sent(), QStringList());
    }
}

void tst_windows_on_wire::faders()
{
    Bench bench;
    const auto step = [&](const char* window, const char* fader, Qt::Key key) {
        QTest::keyClick(handleOf(bench.equalizer(window)->findChild<QWidget*>(QLatin1StringView(fader))), key);
        return bench.console.sent();
    };
    // Of an input: the sound's own number, and the one that is shown.
    QCOMPARE(step("EQ_IN1", "slider", Qt::Key_Up), (QStringList{u"9b0d %1"_s.arg(wire::linear(1)), "9b12 1"}));
    QCOMPARE(step("EQ_IN2", "slider", Qt::Key_Down), (QStringList{u"9b0e %1"_s.arg(wire::linear(-1)), "9b13 -1"}));
    // The headphones' come from where the unit stands.
    bench.console.unit().ask("panel EQ_HP GainInput -20");
    bench.console.unit().ask("panel Output_HP GAIN -30");
    bench.console.hear();
    bench.console.sent();
    QCOMPARE(step("EQ_HP", "slider", Qt::Key_Down), QStringList{"ab14 -21"});
    auto* strip = bench.page()->findChild<QWidget*>("Output_HP");
    QWidget* stripFader = nullptr;
    for (auto* part : strip->findChildren<QWidget*>()) {
        stripFader = valueOf(part) && pathOf(part).contains(u"VSlider") ? part : stripFader;
    }
    QVERIFY(stripFader);
    const auto both = [&](int gain, const QStringList& frames) {
        QCOMPARE(frames,
                 (QStringList{u"6303 %1"_s.arg(wireGain("Input_AUX", gain)), u"6403 %1"_s.arg(wireGain("Input_AUX", gain))}));
        QCOMPARE(int(valueOf(stripFader)->accessibleValue()), gain);
        QCOMPARE(bench.shown()["EQ_HP/slider_2"], QString::number(gain));
        QCOMPARE(workspaceHas("Output_HP/GAIN"), QString::number(gain));
    };
    both(-29, step("EQ_HP", "slider_2", Qt::Key_Up));
    QTest::keyClick(stripFader, Qt::Key_Down);
    both(-30, bench.console.sent());
}

void tst_windows_on_wire::theWorkspaceKeepsTheHeadphones()
{
    Bench bench;
    QFile curve("curve.csv");
    QVERIFY(curve.open(QIODevice::WriteOnly) && curve.write("fre(Hz),raw(dB)\n20,1\n500,6\n5000,-3\n22000,2\n") > 0);
    curve.close();
    const QByteArray before = bytesOf(workspaceFile());
    const QList<int> fresh{0, 0, 0, 1, 0, 0};
    for (const Equalizer& row : kEqualizers) {
        EqualizerBase* window = bench.equalizer(row.window);
        window->show();
        for (int view = 0; view < 6; ++view) {
            const quillon::CurveViewRow& what = quillon::curveViewRows()[std::size_t(view)];
            auto* button = window->findChild<QAbstractButton*>(QLatin1StringView(what.name));
            const QString key = u"Output_HP/EQ"_s + QLatin1StringView(what.attribute);
            QCOMPARE(int(button->isChecked()), fresh[view]);
            QCOMPARE(workspaceHas(key).toInt(), fresh[view]);
            move(button, Hand::Click, 0);
            QCOMPARE(workspaceHas(key).toInt(), fresh[view] ^ int(row.bands == 10));
        }
        if (row.bands == 4) {
            QCOMPARE(bytesOf(workspaceFile()), before); // nobody keeps what an input's window shows
        }
        window->setFileChooser([](const EqualizerTool::FileQuestion&) { return u"curve.csv"_s; });
        window->findChild<QAction*>("actionTarget")->trigger();
    }
    QCOMPARE(bench.console.sent(), QStringList());
    const QFileInfo workspace(workspaceFile());
    QCOMPARE(workspace.dir().entryList({"*.csv"}).filter("Target"), QStringList{"Output_HP_EQTargetFile.csv"});

    bench.console.open();
    const QStringList frames = bench.console.sent();
    QCOMPARE(frames.mid(0, 2) + frames.last(1), (QStringList{"1101 1", "1120 1", "1120 0"}));
    QStringList codes;
    for (const QString& frame : frames.mid(2, frames.size() - 3)) {
        codes += frame.section(u' ', 0, 0);
    }
    const qsizetype told = codes.size();
    QVERIFY(told > 100 && codes.removeDuplicates() == 0);
    QCOMPARE(codes.filter(QRegularExpression("^[9a]")), QStringList()); // the device holds the bands and the switches
    for (const Equalizer& row : kEqualizers) {
        EqualizerBase* window = bench.equalizer(row.window);
        window->show();
        for (int view = 0; view < 6; ++view) {
            auto* button = window->findChild<QAbstractButton*>(QLatin1StringView(quillon::curveViewRows()[std::size_t(view)].name));
            QCOMPARE(int(button->isChecked()), fresh[view] ^ int(row.bands == 10));
        }
    }
    const QList<QAbstractSeries*> curves = bench.equalizer("EQ_HP")->findChild<QChartView*>()->chart()->series();
    const auto target = std::ranges::find(curves, "Target", &QAbstractSeries::name);
    QVERIFY(target != curves.end() && (*target)->isVisible());
    QTRY_VERIFY(qobject_cast<QSplineSeries*>(*target)->count() > 100);
}

QTEST_MAIN(tst_windows_on_wire)
#include "tst_windows_on_wire.moc"
