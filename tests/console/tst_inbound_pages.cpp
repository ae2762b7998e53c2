// What each report of the device moves on each page of the console, and that nothing else moves and nothing goes out.

#include "app/AppSettingsSubject.h"
#include "console/MainWindow_R47.h"
#include "console/ducking/R47_PrivateWidget1.h"
#include "console/settings/TabWidgetS1M1.h"
#include "controls/ValueControl.h"
#include "controls/meter/MeterView.h"
#include "device/Frame.h"
#include "device/USBAudioAPI.h"
#include "equalizer/editor/EqWidgetIem.h"
#include "resources/Resources.h"
#include "strips/output/RouteStrip.h"
#include "tests/device/FakeHid.h"
#include "tests/device/FakeTable.h"
#include "workspace/WorkspaceSubject.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

enum Reach : std::uint8_t { WhenShown, Everywhere };

/// Where a report arrives: on these pages, each while it is shown or at any time. "MLEP" are Mobile, Live, Easy and Pro. The
/// windows are no page's, and always hear: "D" is ducking, "1", "2" and "H" are the equalizers, "S" the settings.
struct Target {
    const char* pages;
    const char* parts; // "Input_IN1 GAIN", or more with commas
    Reach reach = WhenShown;
    const char* during = "MLEP"; // a window hears while one of these is shown
};

const QString kWindows = u"D12HS"_s;

struct Case {
    int code;
    QList<int> values; // in this order, each tells something new
    QList<Target> targets;
    const char* gain = nullptr; // what the first value means in dB
};

const QList<int> kLevels{-100, -400}; // a rise shows as it is and a fall as a step
const QList<int> kSwitch{7, 0};
const QList<int> kPlug{0, 2};
const QList<int> kGain{50, 60};

const QList<Case> kCases{
    {0x2101, kLevels, {{"MLEP", "Input_IN1 Meter"}, {"D", "Ducking_IN1 Left, Ducking_IN1 Right"}, {"1", "EQ_IN1 widgetMeter"}}},
    {0x2102, {3}, {{"MLEP", "Input_IN1 Mic1, Input_IN1 MicHP"}}},
    {0x2102, {2}, {{"MLEP", "Input_IN1 MicHP, Input_IN1 Mic35"}}},
    {0x2102, {99}, {{"MLEP", "Input_IN1 Mic35, Input_IN1 Mic1"}}},
    {0x2103, kSwitch, {{"MLEP", "Input_IN1 48V"}}},
    {0x2104, kGain, {{"MLEP", "Input_IN1 GAIN"}}, "50"},
    {0x2105, kSwitch, {{"MLEP", "Input_IN1 MUTE"}}},
    {0x2106, kPlug, {{"MLP", "Input_IN1 Plug", Everywhere}}},
    {0x2201, kLevels, {{"MLEP", "Input_IN2 Meter"}, {"D", "Ducking_IN2 Left, Ducking_IN2 Right"}, {"2", "EQ_IN2 widgetMeter"}}},
    {0x2203, kSwitch, {{"MLEP", "Input_IN2 48V"}}},
    {0x2204, kGain, {{"MLEP", "Input_IN2 GAIN"}}, "50"},
    {0x2205, kSwitch, {{"MLEP", "Input_IN2 MUTE"}}},
    {0x2206, kPlug, {{"MLP", "Input_IN2 Plug", Everywhere}}},
    {0x2301, kLevels, {{"MLEP", "Input_AUX Left"}, {"LP", "Mixer_AUX Left"}}},
    {0x2304, kGain, {{"MLEP", "Input_AUX GAIN"}}, "-21"},
    {0x2305, kSwitch, {{"MLEP", "Input_AUX MUTE"}}},
    {0x2306, kPlug, {{"MLP", "Input_AUX Plug", Everywhere}}},
    {0x2401, kLevels, {{"MLEP", "Input_AUX Right"}, {"LP", "Mixer_AUX Right"}}},
    {0x2501, kLevels, {{"MLEP", "Input_BT Left"}, {"LP", "Mixer_BT Left"}}},
    {0x2504, kGain, {{"MLEP", "Input_BT GAIN"}}, "-39"},
    {0x2505, kSwitch, {{"MLEP", "Input_BT MUTE"}}},
    {0x2506, kPlug, {{"MLP", "Input_BT Plug", Everywhere}}},
    {0x2601, kLevels, {{"MLEP", "Input_BT Right"}, {"LP", "Mixer_BT Right"}}},
    {0x2701, kLevels, {{"MLEP", "Input_OTGIN Left"}, {"LP", "Mixer_OTGIN Left"}}},
    {0x2704, kGain, {{"MLEP", "Input_OTGIN GAIN"}}, "-39"},
    {0x2705, kSwitch, {{"MLEP", "Input_OTGIN MUTE"}}},
    {0x2706, kPlug, {{"MLP", "Input_OTGIN Plug", Everywhere}}},
    {0x2801, kLevels, {{"MLEP", "Input_OTGIN Right"}, {"LP", "Mixer_OTGIN Right"}}},
    {0x3115, kLevels, {{"E", "Loopback_LB12 Left"}}},
    {0x3215, kLevels, {{"E", "Loopback_LB12 Right"}}},
    {0x3315, kLevels, {{"E", "Output_HP Left"}}},
    {0x3415, kLevels, {{"E", "Output_HP Right"}}},
    {0x3515, kLevels, {{"E", "Output_OTGOUT Left"}}},
    {0x3615, kLevels, {{"E", "Output_OTGOUT Right"}}},
    {0x3715, kLevels, {}},
    {0x3815, kLevels, {}},
    {0x3B15, kLevels, {}},
    {0x3C15, kLevels, {}},
    {0x3901, kLevels, {{"M", "Input_PB12 Left"}, {"LEP", "Mixer_PB12 Left"}}},
    {0x3902, kLevels, {{"M", "Input_PB12 Right"}, {"LEP", "Mixer_PB12 Right"}}},
    {0x3903, kLevels, {{"M", "Output_LB12 Left"}, {"LEP", "Mixer_PB34 Left"}}},
    {0x3904, kLevels, {{"M", "Output_LB12 Right"}, {"LEP", "Mixer_PB34 Right"}}},
    {0x3905, kLevels, {{"LP", "Mixer_PB56 Left"}}},
    {0x3906, kLevels, {{"LP", "Mixer_PB56 Right"}}},
    {0x3907, kLevels, {{"LP", "Mixer_PB78 Left"}}},
    {0x3908, kLevels, {{"LP", "Mixer_PB78 Right"}}},
    {0x3911, kLevels, {{"LP", "Mixer_PB910 Left"}}},
    {0x3912, kLevels, {{"LP", "Mixer_PB910 Right"}}},
    {0x4307,
     kSwitch,
     {{"ML", "Input_IN1 DUCKING, Input_IN2 DUCKING", Everywhere},
      {"D", "Ducking DuckingSwitch"},
      {"E", "ConfigMenuTyro DuckingSwitch", Everywhere}}}, // the same switch once more
    // A type comes with its level, and without a type the dials have nothing to do.
    {0x4407,
     {15},
     {{"M", "Effect_NC NC1, Effect_NC BypassNoise, Effect_NC dialNoiseReduction"},
      {"L", "Effect_Integration NC1, Effect_Integration widgetNoiseTypes, Effect_Integration dialNoiseReduction"}}},
    {0x4407,
     {30},
     {{"M", "Effect_NC NC1, Effect_NC NC2, Effect_NC dialNoiseReduction"},
      {"L", "Effect_Integration NC1, Effect_Integration NC2, Effect_Integration dialNoiseReduction"}}},
    {0x4407,
     {46},
     {{"M", "Effect_NC NC2, Effect_NC BypassNoise, Effect_NC dialNoiseReduction"},
      {"L", "Effect_Integration NC2, Effect_Integration widgetNoiseTypes, Effect_Integration dialNoiseReduction"}}},
    {0x4408, {77, 12}, {{"M", "Effect_Reverb dialDryWet"}, {"L", "Effect_Integration dialDryWet"}}},
    {0x440B,
     {2},
     {{"M", "Effect_Reverb ReverbStudio, Effect_Reverb BypassReverb, Effect_Reverb dialDryWet, Effect_Reverb dialRoom, "
            "Effect_Reverb dialDecay"},
      {"L", "Effect_Integration STUDIO, Effect_Integration widgetReverbTypes, Effect_Integration dialDryWet, "
            "Effect_Integration dialRoom, Effect_Integration dialDecay"}}},
    {0x440B,
     {3},
     {{"M", "Effect_Reverb ReverbStudio, Effect_Reverb ReverbLive"}, {"L", "Effect_Integration STUDIO, Effect_Integration LIVE"}}},
    {0x440B,
     {4},
     {{"M", "Effect_Reverb ReverbLive, Effect_Reverb ReverbHall"}, {"L", "Effect_Integration LIVE, Effect_Integration HALL"}}},
    {0x440B,
     {99},
     {{"M", "Effect_Reverb ReverbHall, Effect_Reverb BypassReverb, Effect_Reverb dialDryWet, Effect_Reverb dialRoom, "
            "Effect_Reverb dialDecay"},
      {"L", "Effect_Integration HALL, Effect_Integration widgetReverbTypes, Effect_Integration dialDryWet, "
            "Effect_Integration dialRoom, Effect_Integration dialDecay"}}},
    {0x440D, kLevels, {{"L", "Effect_Integration Left"}}},
    {0x440E, kLevels, {{"L", "Effect_Integration Right, Mixer_FX Left, Mixer_FX Right"}}},
    {0x6101, kLevels, {{"MLEP", "Output_OTGOUT Left"}}},
    {0x6201, kLevels, {{"MLEP", "Output_OTGOUT Right"}}},
    {0x6203, kGain, {{"MLEP", "Output_OTGOUT GAIN"}}, "-39"},
    {0x6204, kSwitch, {{"MLEP", "Output_OTGOUT MUTE"}}},
    {0x6206, kPlug, {{"MLP", "Input_OTGIN Plug", Everywhere}, {"ML", "Output_OTGOUT Plug", Everywhere}}},
    {0x6207, kPlug, {{"MLP", "Input_OTGIN Plug", Everywhere}, {"ML", "Output_OTGOUT Plug", Everywhere}}},
    {0x6301, kLevels, {{"MLEP", "Output_HP Left"}, {"H", "EQ_HP widgetMeter2 Left", WhenShown, "P"}}},
    {0x6401, kLevels, {{"MLEP", "Output_HP Right"}, {"H", "EQ_HP widgetMeter2 Right", WhenShown, "P"}}},
    {0x6403, kGain, {{"MLEP", "Output_HP GAIN"}, {"H", "EQ_HP slider_2", WhenShown, "P"}}, "-21"},
    {0x6404, kSwitch, {{"MLEP", "Output_HP MUTE"}}},
    {0x6406, kPlug, {{"ML", "Output_HP Plug", Everywhere}}},
    {0x6407, kPlug, {{"ML", "Output_HP Plug", Everywhere}}},
    {0x9B0B, kLevels, {{"LP", "Mixer_IN12 Left"}, {"1", "EQ_IN1 widgetMeter2"}}},
    {0x9B0C, kLevels, {{"LP", "Mixer_IN12 Right"}, {"2", "EQ_IN2 widgetMeter2"}}},
    {0x9B0F, kSwitch, {{"MLP", "Input_IN1 EQ", Everywhere}, {"1", "EQ_IN1 buttonSwitch"}}},
    {0x9B10, kSwitch, {{"MLP", "Input_IN2 EQ", Everywhere}, {"2", "EQ_IN2 buttonSwitch"}}},
    {0x9B12, {-6, 3}, {{"1", "EQ_IN1 slider"}}},
    {0x9B13, {-6, 3}, {{"2", "EQ_IN2 slider"}}},
    {0xAB0B, kLevels, {{"P", "Output_HP Left"}, {"H", "EQ_HP widgetMeter Left"}}},
    {0xAB0C, kLevels, {{"P", "Output_HP Right"}, {"H", "EQ_HP widgetMeter Right"}}},
    {0xAB0F, kSwitch, {{"P", "Output_HP EQ", Everywhere}, {"H", "EQ_HP buttonSwitch"}}},
    {0xAB14, {-20, -7}, {{"H", "EQ_HP slider"}}},
    {0x1104, {2, 1, 0}, {{"S", "SettingsDevice Brightness"}}},
    {0x111A, kSwitch, {{"S", "SettingsDevice Bluetooth"}}},
    {0x111B, {0, 7}, {{"S", "SettingsDevice OtgDirection"}}},
    {0x111C, {3, 2, 1}, {{"S", "SettingsDevice UsbCCharging"}}},
    {0x111E, {0, 7}, {{"S", "SettingsDevice AutoPoweroff"}}},
    {0x1122, {13, 0}, {{"S", "SettingsDevice MainButtonSingle"}}},
    {0x1123, {13, 0}, {{"S", "SettingsDevice MainButtonDouble"}}},
};

/// The fields of the equalizers' bands: a block for each band, from the first one up.
QList<Case> bandCases()
{
    struct Equalizer {
        const char* window;
        const char* name;
        int block;
        int first; // field
        int bands;
    };
    struct Field {
        const char* control;
        QList<int> values;
    };
    const Field fields[]{{"checkBoxSwitch", {0, 1}},
                         {"comboBoxType", {4, 1}},
                         {"dialGain", {35, -120}},
                         {"dialFreq", {1026, 20}},
                         {"dialQ", {9030, 150000}}};
    QList<Case> cases;
    static QList<QByteArray> parts; // outlives the cases
    for (const Equalizer& row :
         {Equalizer{"1", "EQ_IN1", 0x9000, 1, 4}, {"2", "EQ_IN2", 0x9000, 6, 4}, {"H", "EQ_HP", 0xA000, 1, 10}}) {
        for (int band = 1; band <= row.bands; ++band) {
            int code = row.block | band << 8 | row.first;
            for (const Field& field : fields) {
                parts += QByteArray(row.name) + '@' + QByteArray::number(band) + ' ' + field.control;
                cases += Case{code++, field.values, {{row.window, parts.last().constData()}}};
            }
        }
    }
    return cases;
}

/// What a loopback shows of the levels, by its source: codes of what moves its left and its right side.
struct Source {
    const char* name;
    QList<int> left;
    QList<int> right;
};
const QList<Source> kSources{{"Mix A", {0x3115}, {0x3215}},
                             {"Mix B", {0x3315}, {0x3415}},
                             {"Mix C", {0x3515}, {0x3615}},
                             {"Mix D", {0x3715}, {0x3815}},
                             {"Mix E", {0x3B15}, {0x3C15}},
                             {"IN 1", {0x2101}, {0x2101}},
                             {"IN 2", {0x2201}, {0x2201}},
                             {"IN 1+2", {0x2101}, {0x2201}},
                             {"AUX", {0x2301}, {0x2401}},
                             {"BT", {0x2501}, {0x2601}},
                             {"OTG IN", {0x2701}, {0x2801}},
                             {"Playback 1/2", {0x3901}, {0x3902}},
                             {"Playback 3/4", {0x3903}, {0x3904}},
                             {"Playback 5/6", {0x3905}, {0x3906}},
                             {"Playback 7/8", {0x3907}, {0x3908}},
                             {"Playback 9/10", {0x3911}, {0x3912}},
                             {"FX", {0x440E}, {0x440E}}};

const QMap<QChar, PageId> kPages{{u'M', PageMble}, {u'L', PageLive}, {u'E', PageTyro}, {u'P', PageProf}};

/// The letter of the page or window that a widget stands on, "-" elsewhere.
QString letterOf(const QWidget* widget)
{
    static const QHash<QString, QString> equalizers{{u"EQ_IN1"_s, u"1"_s}, {u"EQ_IN2"_s, u"2"_s}, {u"EQ_HP"_s, u"H"_s}};
    for (const QWidget* at = widget; at; at = at->parentWidget()) {
        for (const auto& [letter, id] : kPages.asKeyValueRange()) {
            if (at->objectName() == QLatin1StringView(pageRow(id)->object)) {
                return letter;
            }
        }
        if (qobject_cast<const R47_PrivateWidget1*>(at)) {
            return u"D"_s;
        }
        if (qobject_cast<const TabWidgetS1M1*>(at)) {
            return u"S"_s;
        }
        if (const auto found = equalizers.find(at->objectName()); found != equalizers.end()) {
            return *found;
        }
    }
    return u"-"_s;
}

/// The nearest object that carries a strip's name.
QString stripOf(const QWidget* widget)
{
    static const QRegularExpression strip(u"^((Input|Mixer|Loopback|Output|Effect|ConfigMenu|EQ)_?|Ducking|Settings)"_s);
    const QWidget* at = widget;
    QString band;
    while (at->parentWidget() && !at->objectName().contains(strip)) {
        if (const auto* item = qobject_cast<const EqWidgetIem*>(at)) {
            band = u'@' + QString::number(item->itemData().index + 1);
        }
        at = at->parentWidget();
    }
    return at->objectName() + band;
}

/// What a widget of a strip is called here: a button by its function, and by its panel where two are called the same.
QString partOf(const QWidget* widget)
{
    static const QRegularExpression button(u"^[Pp]ushButton"_s);
    static const QSet<QString> gains{u""_s, u"widgetDial"_s, u"widgetVSlider"_s};
    const QString name = widget->objectName();
    if (name == u"widgetOverlay"_s) {
        return u"Plug"_s;
    }
    static const QRegularExpression own(u"^(slider|dial(Gain|Freq|Q)$)"_s); // of the equalizers
    if (const QString outer = widget->parentWidget()->objectName(); name.isEmpty() && outer.contains(own)) {
        return outer;
    }
    if (name == u"PushButtonBypass"_s) {
        return widget->parentWidget()->parentWidget()->objectName();
    }
    return gains.contains(name) ? u"GAIN"_s : QString(name).remove(button);
}

QString stateOf(QWidget* widget)
{
    QString state = widget->testAttribute(Qt::WA_ForceDisabled) ? u"disabled "_s : u""_s;
    state += widget->isHidden() ? u"hidden "_s : u""_s;
    if (auto* host = dynamic_cast<ValueControlHost*>(widget)) {
        state += QString::number(host->valueControl().accessibleValue());
    } else if (const auto* button = qobject_cast<QAbstractButton*>(widget)) {
        state += button->text() + (button->isChecked() ? u" on"_s : u" off"_s);
    } else if (const auto* combo = qobject_cast<QComboBox*>(widget)) {
        state += combo->currentText();
    } else if (const auto* edit = qobject_cast<QLineEdit*>(widget)) {
        state += edit->text();
    } else if (const auto* label = qobject_cast<QLabel*>(widget)) {
        state += label->text();
    }
    return state;
}

using Shown = QMap<QString, QString>;

/// Everything that the window shows, "L Input_AUX GAIN" -> "-21". A meter has an entry for each side.
Shown snapshot(const QWidget& window)
{
    static QHash<const QWidget*, std::pair<QString, QString>> names; // of one window
    Shown shown;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (qobject_cast<QComboBox*>(widget->parentWidget())) {
            continue; // what a box shows its text with
        }
        if (!names.contains(widget)) {
            names[widget] = {letterOf(widget) + u' ' + stripOf(widget) + u' ', partOf(widget)};
        }
        const auto& [strip, part] = names[widget];
        const QString state = stateOf(widget);
        auto* meter = dynamic_cast<MeterFace*>(widget);
        if (!meter) {
            if (!part.startsWith(u"qt_"_s)) { // the scroll areas' own lay themselves out later
                shown[strip + part] += state + u';';
            }
            continue;
        }
        const QStringList lanes = meter->valueControl().accessibleText().split(u", "_s);
        if (part.startsWith(u"widgetMeter"_s) && strip.contains(u" EQ_"_s)) {
            const bool pair = lanes.size() > 1; // the bar at the left is told last
            shown[strip + part + (pair ? u" Left"_s : u""_s)] += lanes.last() + u';';
            if (pair) {
                shown[strip + part + u" Right"_s] += lanes.first() + u';';
            }
            continue;
        }
        if (part.endsWith(u"Left"_s) || part.endsWith(u"Right"_s)) {
            shown[strip + (part.endsWith(u"Left"_s) ? u"Left"_s : u"Right"_s)] += lanes.join(u'|') + u';';
        } else if (lanes.size() == 1) {
            shown[strip + u"Meter"_s] += lanes.first() + u';';
        } else {
            shown[strip + u"Left"_s] += lanes.first(lanes.size() / 2).join(u'|') + u';';
            shown[strip + u"Right"_s] += lanes.last(lanes.size() / 2).join(u'|') + u';';
        }
    }
    return shown;
}

QStringList difference(const Shown& before, const Shown& after)
{
    QStringList changed;
    for (const auto& [key, state] : after.asKeyValueRange()) {
        if (before.value(key) != state) {
            changed += key;
        }
    }
    return changed; // in order
}

} // namespace

class TestInboundPages : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();
    void eachReportMovesWhatItNames_data();
    void eachReportMovesWhatItNames();
    void loopbacksShowTheirSource();
    void othersMoveNothing();

private:
    void tell(int code, int value) { mWindow->in_mDevice_newFrameReceived({.code = code, .value = value}); }
    QList<RouteStrip*> loopbacks() const;
    QStringList expected(QChar shown, const Case& report) const;
    void check(QChar shown, const Case& report);
    /// How many frames have gone out when all that is on its way has.
    qint64 sent();

    QTemporaryDir mFolder;
    faketable::Driver mDriver;
    std::unique_ptr<MainWindow_R47> mWindow;
    int mFence = 1000;
};

void TestInboundPages::initTestCase()
{
    initResources();
    QVERIFY(QDir::setCurrent(mFolder.path()));
    QSettings().clear();
    QSettings().setValue("ScaleFactor", 1.0);
    AppSettingsSubject::instance().init();
    mDriver.devices = {u"R47"_s};
    faketable::driver = &mDriver;
    USBAudioAPI::setLibrary(std::make_unique<faketable::FakeDll>());
    QVERIFY(USBAudioAPI::instance().Init());
    fakehid::install();
    mWindow = std::make_unique<MainWindow_R47>();
    mWindow->startConnection();
    mWindow->finishAuth(2);
}

void TestInboundPages::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support propagateSizeHints)"_s));
}

void TestInboundPages::cleanupTestCase()
{
    mWindow.reset();
    QCOMPARE(fakehid::misuse(), QByteArray());
}

qint64 TestInboundPages::sent()
{
    QCoreApplication::processEvents();
    emit WorkspaceSubject::instance().attributeChanged(u"Workspace"_s, u"LoadSettings"_s, QString::number(++mFence));
    const Report last = encodeOutput({.code = 0x1120, .value = mFence});
    const QByteArray fence(reinterpret_cast<const char*>(last.data()), qsizetype(last.size()));
    QElapsedTimer time;
    time.start();
    while (fakehid::written().isEmpty() || fakehid::written().last() != fence) {
        if (time.hasExpired(5000)) {
            QTest::qFail("the writer is held up", __FILE__, __LINE__);
            break;
        }
        QThread::usleep(20);
    }
    return fakehid::writtenCount();
}

QList<RouteStrip*> TestInboundPages::loopbacks() const
{
    QList<RouteStrip*> strips;
    const auto* page = mWindow->findChild<QWidget*>(QLatin1StringView(pageRow(mWindow->pageId())->object));
    for (auto* strip : page->findChildren<RouteStrip*>()) {
        if (strip->objectName().startsWith(u"Loopback"_s)) {
            strips += strip;
        }
    }
    return strips;
}

QStringList TestInboundPages::expected(QChar shown, const Case& report) const
{
    QStringList parts;
    for (const Target& target : report.targets) {
        for (const QChar page : QString::fromLatin1(target.pages)) {
            const bool window = kWindows.contains(page) && QString::fromLatin1(target.during).contains(shown);
            if (page == shown || window || target.reach == Everywhere) {
                for (const QString& part : QString::fromLatin1(target.parts).split(u", "_s)) {
                    parts += page + u' ' + part;
                }
            }
        }
    }
    for (const RouteStrip* strip : loopbacks()) {
        for (const Source& source : kSources) {
            if (strip->audioSource() == QLatin1StringView(source.name)) {
                const QString name = shown + u' ' + strip->objectName();
                parts += source.left.contains(report.code) ? QStringList{name + u" Left"_s} : QStringList();
                parts += source.right.contains(report.code) ? QStringList{name + u" Right"_s} : QStringList();
            }
        }
    }
    parts.sort();
    return parts;
}

void TestInboundPages::check(QChar shown, const Case& report)
{
    const QStringList parts = expected(shown, report);
    const qint64 frames = sent();
    Shown before = snapshot(*mWindow);
    for (const int value : report.values) {
        tell(report.code, value);
        const Shown after = snapshot(*mWindow);
        const QStringList changed = difference(before, after);
        QVERIFY2(changed == parts, qPrintable(u"%1 %2 on %3 moves %4 in place of %5"_s.arg(report.code, 0, 16)
                                                  .arg(value)
                                                  .arg(shown)
                                                  .arg(changed.join(u", "_s), parts.join(u", "_s))));
        before = after;
        if (report.values == kLevels) {
            continue;
        }
        tell(report.code, value); // no news
        QCOMPARE(snapshot(*mWindow), after);
        if (report.gain && value == report.values.first()) {
            QVERIFY2(after[parts.first()].contains(QLatin1StringView(report.gain) + u';'), qPrintable(after[parts.first()]));
        }
    }
    QVERIFY2(sent() == frames + 1, qPrintable(u"%1 on %2 goes out again"_s.arg(report.code, 0, 16).arg(shown)));
}

void TestInboundPages::eachReportMovesWhatItNames_data()
{
    QTest::addColumn<QChar>("page");
    for (const auto& [letter, id] : kPages.asKeyValueRange()) {
        QTest::newRow(pageRow(id)->object) << letter;
    }
}

void TestInboundPages::eachReportMovesWhatItNames()
{
    QFETCH(const QChar, page);
    mWindow->setPage(kPages[page]);
    for (const Case& report : kCases + bandCases()) {
        check(page, report);
        if (QTest::currentTestFailed()) {
            return;
        }
    }
    // What has come last is in the page's own file.
    WorkspaceSubject::instance().saveWorkspace();
    const PageRow& row = *pageRow(kPages[page]);
    const QFileInfoList files = QDir(QLatin1StringView(row.folder)).entryInfoList({u"*.ini"_s});
    QCOMPARE(files.size(), 1);
    const QSettings stored(files.first().filePath(), QSettings::IniFormat);
    for (const auto& [strip, gainDb] : {std::pair{u"Input_IN1"_s, 60}, {u"Input_IN2"_s, 60}, {u"Input_AUX"_s, -11}}) {
        QCOMPARE(stored.value(strip + u"/GAIN"_s).toInt(), gainDb);
    }
}

void TestInboundPages::loopbacksShowTheirSource()
{
    for (const auto& [page, unknown] : {std::pair{u'L', QStringList()}, {u'P', QStringList{"Mix D", "Mix E", "FX"}}}) {
        mWindow->setPage(kPages[page]);
        QCOMPARE(loopbacks().size(), 4);
        // Each source is played once, each time beside three others.
        for (qsizetype first = 0; first < kSources.size(); first += 4) {
            for (qsizetype i = 0; i < 4; ++i) {
                const QString source = QString::fromLatin1(kSources[(first + i) % kSources.size()].name);
                loopbacks()[i]->setAudioSource(unknown.contains(source) ? u"AUX"_s : source);
            }
            for (const Case& report : kCases) {
                if (report.values == kLevels) {
                    check(page, report);
                }
                if (QTest::currentTestFailed()) {
                    return;
                }
            }
        }
    }
}

void TestInboundPages::othersMoveNothing()
{
    QSet<int> known;
    for (const Case& report : kCases + bandCases()) {
        known += report.code;
    }
    for (const auto& [letter, id] : kPages.asKeyValueRange()) {
        mWindow->setPage(id);
        for (int block = 0x2000; block < 0x10000; block += 0x100) {
            const qint64 frames = sent();
            const Shown before = snapshot(*mWindow);
            for (int code = block; code < block + 0x100; ++code) {
                if (!known.contains(code)) {
                    tell(code, -55);
                }
            }
            const QStringList changed = difference(before, snapshot(*mWindow));
            QVERIFY2(
                changed.isEmpty() && sent() == frames + 1,
                qPrintable(u"something of %1xx on %2 moves %3"_s.arg(block >> 8, 0, 16).arg(letter).arg(changed.join(u", "_s))));
        }
    }
}

QTEST_MAIN(TestInboundPages)
#include "tst_inbound_pages.moc"
