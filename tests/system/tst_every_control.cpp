// Every control of every page, moved as a user moves it: the device is told what that means, each value once, and nothing else.
// A control without a rule here is a failure.

#include "PageHands.h"
#include "PageOnWire.h"

#include "controls/MessageBoxS3M1.h"
#include "controls/ToolButtonS1M1.h"

#include <QComboBox>
#include <QDir>
#include <QTimer>
#include <utility>

using namespace Qt::StringLiterals;
using quillon::PageId;

namespace
{

enum Kind { Told, Twice, Again, Unkept, Exact, Silent, Hidden, Foreign };

struct Rule {
    const char* pages; // M, L, E, P
    const char* control;
    Kind kind;
    const char* frames; // what may be told: codes; of kind Exact the frame; of Silent, Hidden and Foreign the reason
};

// The first row that matches decides. Told: each value that changes, once. Twice: each of them twice. Again: as often as it likes.
// Unkept: each value that changes, once, and no workspace keeps it.
const Rule kRules[]{
    // What the device never hears of.
    {"ML", "(Effect_.*|Ducking/.*)lineEdit(NoiseReduction|Reverb)?", Hidden, "a title, and not to be edited"},
    {"MLEP", ".*lineEdit", Silent, "a name is the workspace's"},
    {"LP", "Input_.*pushButtonClose", Hidden, "never shown: inputs stay"},
    {"LP", "FieldInput/.*pushButton_.*", Hidden, "never shown: inputs stay"},
    {"LP", "FieldInput/.*pushButtonAddition", Hidden, "never shown: inputs stay"},
    {"MLEP", ".*pushButtonAddition", Silent, "opens the list"},
    {"MLP", ".*PushButtonAUTO", Silent, "asks before it measures"},
    {"LP", "FieldMixer/Mix[A-E]", Silent, "the device has all mixes"},
    {"E", "ConfigMenuTyro/.*(User[12]|RouterManuals)", Silent, "the console's own"},
    {"ML", "Ducking/.*TitleButton", Foreign, "puts the window away"},
    {"M", "Ducking/.*Playback(3_4|5_6|7_8|9_10)", Hidden, "this mode has one playback"},
    {"ML", "Ducking/.*Ducking_IN.*pushButtonClose", Hidden, "never shown"},
    {"MLEP", ".*(QSplitterHandle|QScrollBar|PageLiveSplitter.*|PageMbleSplitter.*|PageProfSplitter.*)", Silent,
     "room on the screen"},
    {"MLEP", "FieldHead/(SampleRate|BufferSize)", Silent, "the driver's"},
    {"MLP", "FieldHead/WorkspaceSave", Silent, "writes the file"},
    {"MLP", "FieldHead/WorkspaceDownload", Exact, "1105 1"},
    {"MLEP", "FieldHead/SystemSettings", Silent, "opens the settings"},
    {"MLP", "FieldHead/Workspace", Foreign, "opens another workspace"},
    {"E", "ConfigMenuTyro/.*Professional", Foreign, "opens another page"},
    {"MLP", "(?!Ducking).*[dD]ial\\w*/QLineEdit", Hidden, "the dials of strips are not typed into"},
    // Strips that stand for others.
    {"M", "Output_LB12/widgetToolButton.*", Hidden, "never shown: the device has its own routing"},
    {"M", "Output_LB12/(?!pushButtonClose).*", Twice, "5[12]03"},
    {"M", "(Output_LB12/pushButtonClose|FieldOutput/.*pushButton_Recording)", Twice, "5[12]03"},
    {"M", "(Input_PB12/.*|FieldInput/.*pushButton_Playback.*)", Told, "5[34]03"},
    {"E", "(Mixer_PB[13].*|FieldTop/.*pushButton_Playback.*)", Told, "3[1-6]0[1-4]"},
    {"E", "(Loopback_LB12/.*|FieldBottom/.*pushButton_Loopback.*)", Told, "5[12]03"},
    // The switches of the equalizers.
    {"MLP", "Input_IN1/.*PushButtonEQ", Unkept, "9b0f"},
    {"MLP", "Input_IN2/.*PushButtonEQ", Unkept, "9b10"},
    {"P", "Output_HP/.*PushButtonEQ", Unkept, "ab0f"},
    // Inputs.
    {"MLEP", "Input_.*Mic(1|35|HP)", Told, "2102"},
    {"MLEP", "Input_.*48V", Told, "2[12]03"},
    {"P", "Input_.*ANTI", Told, "2[12357]0a"},
    {"MLEP", "Input_.*(MUTE|SOLO|pushButtonClose)", Told, "2[12357]05"},
    {"ME", "Field(Input|Top)/.*pushButton_.*", Told, "2[12357]05"},
    {"L", "Input_.*widgetHSlider.*", Told, "3[1-9abc](09|0a)"},
    {"ML", "Input_.*DUCKING", Told, "4307"},
    {"MLEP", "Input_.*(widgetDial|widgetVSlider).*", Told, "2[12357]0[45]"},
    // Mixes, loopbacks, outputs.
    {"LP", "Mixer_.*", Told, "3[1-9abc][01][0-9a-f]"},
    {"LP", "FieldMixer/.*pushButton_.*", Told, "3[1-9abc][01][0-9a-f]"},
    {"LP", "(Loopback_.*widgetToolButton.*)", Told, "5[1357]02"},
    {"LP", "Loopback_.*", Told, "5[1-8]0[23]"},
    {"LP", "FieldLoopback/.*pushButton_.*", Told, "5[1-8]0[23]"},
    {"M", "Output_.*widgetToolButton.*", Hidden, "never shown: the device has its own routing"},
    {"LP", "Output_.*widgetToolButton.*", Told, "6[24]02"},
    {"MLEP", "Output_.*(MUTE|pushButtonClose)", Told, "6[1-4]04"},
    {"MLEP", "Field(Output|Bottom)/.*pushButton_(HP|OTG).*", Told, "6[1-4]04"},
    {"MLEP", "Output_.*VSlider.*", Told, "6[1-4]0[34]"},
    // Effects.
    {"L", "Effect_Integration/.*Level/.*", Told, "440[1-5]"},
    {"ML", "Effect_.*(pushButtonNC|BypassNoise|widgetNoiseTypes).*", Again, "440[67]"},
    {"ML", "Effect_.*(pushButtonReverb|BypassReverb|widgetReverbTypes).*", Told, "440[9b]"},
    {"ML", "Effect_.*dialNoiseReduction.*", Told, "4406"},
    {"ML", "Effect_.*dialDryWet", Told, "4408"},
    {"ML", "Effect_.*dialRoom.*", Told, "4409"},
    {"ML", "Effect_.*dialDecay.*", Told, "440a"},
    {"L", "Effect_Integration/.*MUTE", Told, "440c"},
    {"E", "Effect/NCType/.*", Again, "(4407|3[1-6](09|0a|13|14))"},
    {"E", "Effect/ReverbType/.*", Again, "(440b|3[1-6](09|0a|13|14))"},
    {"E", "Effect/DialReverb", Told, "4408"},
    {"MLE", "(Effect.*|ConfigMenuTyro/)pushButtonClose", Silent, "an effect goes on when it is not shown"},
    {"MLE", "Field(Effect|Bottom)/.*pushButton_(NC|Reverb|Effect|ConfigMenu).*", Silent, "an effect goes on when it is not shown"},
    // Menus.
    {"ML", "ConfigMenu.*Chat", Exact, "4501 1"},
    {"ML", "ConfigMenu.*Vocal", Exact, "4502 1"},
    {"MLP", "ConfigMenu.*Load preset1", Exact, "110e 1"},
    {"MLP", "ConfigMenu.*Load preset2", Exact, "1112 1"},
    {"MLP", "ConfigMenu.*Save preset1", Exact, "1108 1"},
    {"MLP", "ConfigMenu.*Save preset2", Exact, "110b 1"},
    {"E", "ConfigMenuTyro/.*Load", Exact, "1112 1"}, // of the second user, who was chosen before
    {"E", "ConfigMenuTyro/.*Save", Exact, "110b 1"},
    {"E", "ConfigMenuTyro/.*DuckingSwitch", Told, "4307"},
    // The ducking window.
    {"ML", "Ducking/.*dialThreshold.*", Told, "4301"},
    {"ML", "Ducking/.*dialAttack.*", Told, "4302"},
    {"ML", "Ducking/.*dialReduction.*", Told, "4303"},
    {"ML", "Ducking/.*dialRelease.*", Told, "4304"},
    {"ML", "Ducking/.*pushButtonDuckingSwitch", Told, "4307"},
    {"ML", "Ducking/.*pushButtonIN1.*", Told, "4305"},
    {"ML", "Ducking/.*pushButtonIN2.*", Told, "4306"},
};

const Rule* ruleOf(char page, const QString& path)
{
    for (const Rule& rule : kRules) {
        if (strchr(rule.pages, page) &&
            QRegularExpression(QRegularExpression::anchoredPattern(QLatin1StringView(rule.control))).match(path).hasMatch()) {
            return &rule;
        }
    }
    return nullptr;
}

using Gesture = std::function<void()>;

/// Everything a hand can do with it.
QList<Gesture> gestures(QWidget* widget)
{
    QList<Gesture> all;
    if (auto* value = valueOf(widget)) {
        const bool low = value->accessibleValue() < (value->accessibleRange().minimum + value->accessibleRange().maximum) / 2;
        for (const Hand hand : {Hand::Wheel, Hand::DragUp, Hand::DragRight}) {
            all << [=] { move(widget, hand, low ? 2 : -2); } << [=] { move(widget, hand, low ? -1 : 1); };
            all << [=] { move(widget, hand, low ? 30 : -30); };
        }
        all << [=] { move(widget, Hand::Key, low ? Qt::Key_Up : Qt::Key_Down); };
        all << [=] { move(widget, Hand::Key, low ? Qt::Key_Right : Qt::Key_Left); };
        all << [=] { move(widget, Hand::Double, 0); };
        all << [=] { value->setAccessibleValue(value->accessibleRange().minimum); };
        all << [=] { value->setAccessibleValue(value->accessibleRange().minimum - 1000); };
        all << [=] { value->setAccessibleValue((value->accessibleRange().minimum + value->accessibleRange().maximum) / 2); };
    } else if (auto* editor = qobject_cast<QLineEdit*>(widget)) {
        QWidget* control = widget->parentWidget();
        while (control && !valueOf(control) && !control->findChild<QSlider*>()) {
            control = control->parentWidget();
        }
        for (const char* text : {"-3", "3", "-5", "+5", "5", "-99", "Vox", "L5", "R20"}) {
            all << [=] {
                if (control && editor->isHidden()) {
                    move(control, Hand::Right, 0);
                }
                typeInto(editor, QString::fromLatin1(text));
            };
        }
    } else if (auto* tool = qobject_cast<ToolButtonS1M1*>(widget->parentWidget())) {
        for (QAction* action : tool->findChildren<QAction*>()) {
            if (!action->menu() && !action->isSeparator() && !action->text().isEmpty()) {
                all << [=] { action->trigger(); } << [=] { action->trigger(); };
            }
        }
    } else if (qobject_cast<QComboBox*>(widget)) {
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) {
            all << [=] { move(widget, Hand::Key, key); };
        }
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        const bool waits = widget->objectName().contains(QRegularExpression("EQ$|DUCKING$")); // for a second click
        const Gesture click = [=] {
            move(widget, Hand::Click, 0);
            if (waits) {
                QTest::qWait(250);
            }
        };
        all << click << [=] { move(widget, Hand::Space, 0); } << [=] { button->click(); } << click;
    }
    return all;
}

} // namespace

class tst_every_control : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void isHeardOnce_data();
    void isHeardOnce();

private:
    QStringList check(const QString& path, const Rule& rule, const Gesture& gesture);
    QStringList press(const QString& path, const Rule& rule, QWidget* widget);
    QStringList closeAndAdd(char page, const QString& path, QWidget* close, QSet<QString>& open);

    QTemporaryDir mFolder{wire::quickFolder()};
    std::unique_ptr<Console> mConsole;
    PageId mPage = quillon::PageLive;
    wire::Values mWorkspace; // after the last movement
    bool mAsked = false;
    qsizetype mTold = 0; // frames of the control that is moved
};

void tst_every_control::initTestCase()
{
    loadLibraries();
}

void tst_every_control::init()
{
    mConsole.reset();
    wire::beginTest(mFolder);
}

/// Moves it and compares what was told with what the workspace then says. Returns what is wrong.
QStringList tst_every_control::check(const QString& path, const Rule& rule, const Gesture& gesture)
{
    const wire::Values before = std::exchange(mWorkspace, {});
    mConsole->sent();
    gesture();
    const QStringList frames = mConsole->sent();
    const wire::Values after = mWorkspace = wire::workspaceSays(mPage);
    mTold += frames.size();
    if (rule.kind == Exact) {
        return frames == QStringList{QLatin1StringView(rule.frames)} ? QStringList()
                                                                     : QStringList{path + u" told "_s + frames.join(u", ")};
    }
    QStringList wrong;
    QMap<QString, QStringList> told;
    for (const QString& frame : frames) {
        told[frame.section(u' ', 0, 0)] += frame.section(u' ', 1);
    }
    const QRegularExpression allowed(
        QRegularExpression::anchoredPattern(QLatin1StringView(rule.kind == Silent ? "-" : rule.frames)));
    const int times = rule.kind == Twice ? 2 : 1;
    for (const auto& [code, values] : told.asKeyValueRange()) {
        if (!allowed.match(code).hasMatch()) {
            wrong += u"%1 told %2 %3"_s.arg(path, code, values.join(u','));
        } else if (rule.kind != Unkept && values.last().toLongLong() != after.value(code, -999)) {
            wrong += u"%1 told %2 %3, the workspace has %4"_s.arg(path, code, values.join(u',')).arg(after.value(code, -999));
        }
        qint64 last = before.value(code, -999);
        for (qsizetype i = 0; rule.kind != Again && i < values.size(); i += times) {
            const bool complete = i + times <= values.size() && values[i] == values[i + times - 1];
            if (!complete || values[i].toLongLong() == last) {
                wrong += u"%1 told %2 %3 after %4"_s.arg(path, code, values.join(u',')).arg(before.value(code));
                break;
            }
            last = values[i].toLongLong();
        }
    }
    for (const QString& line : wire::differences(before, after)) {
        if (const QString code = line.left(4); before.contains(code) && !told.contains(code)) {
            wrong += u"%1 did not tell %2"_s.arg(path, line);
        }
    }
    return wrong;
}

/// All that can be done with one control.
QStringList tst_every_control::press(const QString& path, const Rule& rule, QWidget* widget)
{
    QStringList wrong;
    mTold = 0;
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (rule.kind == Exact) {
        if (path.endsWith(u"WorkspaceDownload")) {
            return check(path, rule, [this, button] {
                mAsked = false;
                move(button, Hand::Click, 0);
                QTRY_VERIFY(mAsked);
            });
        }
        return check(path, rule, [button] { move(button, Hand::Click, 0); }) +
               check(path, rule, [button] { move(button, Hand::Space, 0); });
    }
    const bool checked = button && button->isChecked();
    for (const Gesture& gesture : gestures(widget)) {
        wrong += check(path, rule, gesture);
    }
    if (mTold == 0 && rule.kind != Silent && button && button->isCheckable()) {
        // One of several, which stood there already: another one, and back.
        for (auto* other : widget->parentWidget()->findChildren<QAbstractButton*>()) {
            if (other != button && other->isVisible() && other->isCheckable()) {
                other->click();
                mWorkspace = wire::workspaceSays(mPage);
                break;
            }
        }
        wrong += check(path, rule, [button] { move(button, Hand::Click, 0); });
    }
    if (button && button->isChecked() != checked) {
        wrong += check(path, rule, [button] { button->click(); }); // as it was, for those that come after it
    }
    if (mTold == 0 && rule.kind != Silent) {
        wrong += path + u" told nothing"_s;
    }
    return wrong;
}

/// Puts a strip away and fetches it back out of its field's list.
QStringList tst_every_control::closeAndAdd(char page, const QString& path, QWidget* close, QSet<QString>& open)
{
    QWidget* strip = close->parentWidget();
    QWidget* field = strip;
    while (!field->objectName().startsWith(u"Field")) {
        field = field->parentWidget();
    }
    const auto entries = [field] {
        QList<QPushButton*> all = field->findChildren<QPushButton*>(QRegularExpression("^pushButton_"));
        all.removeIf([](QPushButton* button) { return !button->isVisible(); });
        return all;
    };
    QStringList wrong = check(path, *ruleOf(page, path), [close] { qobject_cast<QPushButton*>(close)->click(); });
    auto* plus = field->findChild<QPushButton*>("pushButtonAddition");
    if (strip->isVisible() || !plus->isVisible()) {
        return wrong << path + u" does not close"_s;
    }
    const QString plusPath = pathOf(plus);
    wrong += check(plusPath, *ruleOf(page, plusPath), [plus] { move(plus, Hand::Click, 0); });
    if (entries().size() != 1) {
        return wrong << u"%1: %2 to add"_s.arg(path).arg(entries().size());
    }
    QPushButton* entry = entries().first();
    const QString entryPath = pathOf(entry);
    wrong += check(entryPath, *ruleOf(page, entryPath), [entry] { move(entry, Hand::Click, 0); });
    open -= {path, plusPath, entryPath};
    return strip->isVisible() ? wrong : wrong << path + u" does not come back"_s;
}

void tst_every_control::isHeardOnce_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("letter");
    QTest::newRow("Mobile") << int(quillon::PageMble) << 1 << "M";
    QTest::newRow("Live") << int(quillon::PageLive) << 2 << "L";
    QTest::newRow("Easy") << int(quillon::PageTyro) << 2 << "E";
    QTest::newRow("Pro") << int(quillon::PageProf) << 3 << "P";
}

void tst_every_control::isHeardOnce()
{
    QFETCH(const int, page);
    QFETCH(const int, mode);
    QFETCH(const QString, letter);
    mPage = PageId(page);
    QSettings().setValue(quillon::kPageIdKey, page);
    mConsole = std::make_unique<Console>(QStringList{"--rate", "0", "--mode", QString::number(mode)});
    QCOMPARE(mConsole->window().pageId(), page);
    QStringList missing;
    const wire::Values initial = mWorkspace = wire::workspaceSays(mPage, &missing);
    QCOMPARE(missing, QStringList());
    QCOMPARE(wire::differences(wire::deviceSays(*mConsole, initial), initial), QStringList());

    auto* ducking = mConsole->window().findChild<QWidget*>("Ducking");
    if (page == quillon::PageLive || page == quillon::PageMble) {
        ducking->show();
    }
    QTest::qWait(50);
    // Whoever asks is told no; but for the workspace bar, which is told to send to the device only.
    QTimer user;
    connect(&user, &QTimer::timeout, this, [this] {
        for (auto* question : mConsole->window().findChildren<MessageBoxS3M1*>()) {
            if (question->isVisible()) {
                mAsked = true;
                question->done(4);
                return;
            }
        }
        if (QWidget* modal = QApplication::activeModalWidget()) {
            modal->close();
        }
    });
    user.start(5);
    const auto controls = [&] { return controlsOf(mConsole->window()); };
    QSet<QString> open; // not yet moved
    QStringList wrong;
    for (QWidget* widget : controls()) {
        const QString path = pathOf(widget);
        if (!ruleOf(letter[0].toLatin1(), path)) {
            wrong += u"no rule for %1 (%2)"_s.arg(path, QLatin1StringView(widget->metaObject()->className()));
        }
        open += path;
    }
    QCOMPARE(wrong.join(u'\n'), QString());
    for (int pass = 0; pass < 2; ++pass) {
        for (QWidget* widget : controls()) {
            if (QTest::currentTestFailed()) {
                return;
            }
            const QString path = pathOf(widget);
            const Rule* rule = ruleOf(letter[0].toLatin1(), path);
            if (!rule) {
                wrong += u"no rule for "_s + path;
            } else if (rule->kind == Hidden || rule->kind == Foreign) {
                wrong += rule->kind == Hidden && widget->isVisible() && widget->isEnabled() ? QStringList{path + u" is shown"_s}
                                                                                            : QStringList();
                open -= path;
            } else if (pass == 0 && path.endsWith(u"/pushButtonLink")) {
                continue; // both of its forms are alike until their faders have been moved
            } else if (path.endsWith(u"/pushButtonClose")) {
                wrong += open.contains(path) ? closeAndAdd(letter[0].toLatin1(), path, widget, open) : QStringList();
            } else if (const bool covered = qobject_cast<QLineEdit*>(widget) && valueOf(widget->parentWidget()) &&
                                            widget->parentWidget()->isVisible() && widget->parentWidget()->isEnabled();
                       open.contains(path) && ((widget->isVisible() && widget->isEnabled()) || covered)) {
                open -= path;
                wrong += press(path, *rule, widget);
            }
        }
        // The first mix again, the other form of what has two, and effects that work.
        if (auto* mix = mConsole->window().findChild<QStackedWidget*>()->currentWidget()->findChild<QAbstractButton*>("MixA")) {
            mix->click();
        }
        for (QWidget* widget : controls()) {
            auto* button = qobject_cast<QAbstractButton*>(widget);
            static const QRegularExpression prepares(
                "pushButtonLink|pushButtonNC1|PushButtonNC1|pushButtonReverbStudio|PushButtonSTUDIO");
            if (button && button->isVisible() && button->objectName().contains(prepares)) {
                button->click();
            }
        }
        mWorkspace = wire::workspaceSays(mPage);
    }
    QCOMPARE(wrong.join(u'\n'), QString());
    QCOMPARE(open.values().join(u'\n'), QString());
    mConsole.reset();
}

QTEST_MAIN(tst_every_control)
#include "tst_every_control.moc"
