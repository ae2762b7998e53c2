// The settings dialog with its four pages: each row both ways, both languages at all scales, and what the pages ask of others.

#include "app/GlobalFont.h"
#include "console/settings/R47_PrivateWidget7.h"
#include "console/settings/TabWidgetS1M1.h"
#include "console/settings/WidgetAbout1.h"
#include "console/settings/WidgetAudio1.h"
#include "console/settings/WidgetSytem1.h"
#include "device/InboundTable.h"
#include "device/USBAudioAPI.h"
#include "resources/Resources.h"
#include "tests/connect/Fakes.h"
#include "tests/device/FakeTable.h"
#include "workspace/WorkspaceObserver.h"
#include "workspace/WorkspaceSubject.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace
{

const QStringList kTabs{u"System"_s, u"Device"_s, u"ASIO"_s, u"About"_s};

/// The dialog as the main window builds it, on screen.
struct Bench {
    Bench()
    {
        dialog.setTabNames({{u"English"_s, kTabs}, {u"Chinese"_s, {u"系统设置"_s, u"设备设置"_s, u"ASIO设置"_s, u"关于"_s}}});
        dialog.addPage(u"System"_s, system);
        dialog.addPage(u"Device"_s, device);
        dialog.addPage(u"ASIO"_s, audio);
        dialog.addPage(u"About"_s, about);
        AppSettingsSubject::instance().addObservers({&dialog, system, device, audio, about});
        system->setLanguage(u"English"_s);
        system->setScaleFactor(u"1.5"_s);
        device->setDisplayMode(u"Mobile mode"_s);
        audio->setSampleRates({44100, 48000}, 48000);
        audio->setBufferSizes({64, 128, 256}, 256);
        const auto note = [this](const QString& object, const QString& attribute, const QString& value) {
            told += object + u' ' + attribute + u'=' + value;
        };
        QObject::connect(system, &WidgetSytem1::attributeChanged, note);
        QObject::connect(device, &R47_PrivateWidget7::attributeChanged, note);
        QObject::connect(audio, &WidgetAudio1::attributeChanged, note);
        QObject::connect(about, &WidgetAbout1::attributeChanged, note);
        QObject::connect(&AppSettingsSubject::instance(), &AppSettingsSubject::attributeChanged, &dialog, note);
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }
    ~Bench() { AppSettingsSubject::instance().removeAllObservers(); }

    template<class Control = QWidget> Control* row(const QString& name) { return dialog.findChild<Control*>(name); }
    void press(const QString& name, Qt::Key key) { QTest::keyClick(row(name), key); }
    QString text(const QString& name) { return row<QLabel>("text"_L1 + name)->text(); }
    /// What each control shows, as its place and not as its text.
    QList<int> shown()
    {
        QList<int> state;
        for (const QComboBox* combo : dialog.findChildren<QComboBox*>())
            state += combo->currentIndex();
        for (const QCheckBox* toggle : dialog.findChildren<QCheckBox*>())
            state += int(toggle->isChecked());
        return state;
    }

    WidgetSytem1* system = new WidgetSytem1;
    R47_PrivateWidget7* device = new R47_PrivateWidget7;
    WidgetAudio1* audio = new WidgetAudio1;
    WidgetAbout1* about = new WidgetAbout1;
    TabWidgetS1M1 dialog;
    QStringList told;
};

struct Probe : WorkspaceObserver {
    Probe() : WorkspaceObserver(u"Probe"_s) {}
    void loadSettings() override {}
    void set(int to) { saveValue("Value", to); }
};

bool fits(const QLabel* label)
{
    const QFontMetrics metrics(label->font());
    return metrics.horizontalAdvance(label->text()) <= label->width() && metrics.height() <= label->height();
}

} // namespace

class TestSettingsDialog : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void rows_data();
    void rows();
    void settersAreSilent();
    void deviceReports_data();
    void deviceReports();
    void modes();
    void scaleBetweenTheSteps();
    void refusedByTheDriver();
    void autoSaveKeepsTheEdits();
    void versions();
    void resetQuestion_data();
    void resetQuestion();
    void languages();
    void nothingIsClipped_data();
    void nothingIsClipped();
    void keyboard();
    void wheelScrolls();

private:
    faketable::Driver mDriver;
};

void TestSettingsDialog::initTestCase()
{
    quillon::initResources();
    QVERIFY(GlobalFont::instance().load(quillon::applicationFontPaths()));
    mDriver.devices = {u"R47"_s};
    faketable::driver = &mDriver;
    USBAudioAPI::setLibrary(std::make_unique<faketable::FakeDll>());
    QVERIFY(USBAudioAPI::instance().Init());
    QVERIFY(USBAudioAPI::instance().setDeviceToActiveByName(u"R47"_s));
}

void TestSettingsDialog::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support )"_s));
    QSettings().clear();
    AppSettingsSubject::instance().init();
    mDriver.failing.clear();
    mDriver.calls.clear();
}

/// One key on one control: what is told by it, in this order and nothing else, and what is in the store or at the driver then.
void TestSettingsDialog::rows_data()
{
    QTest::addColumn<QString>("tab");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QStringList>("told");
    QTest::addColumn<QString>("stored");
    const QString app = u"AppSettings "_s;
    const auto add = [](const char* row, const QString& tab, Qt::Key key, const QStringList& told, const QString& stored = {}) {
        QTest::newRow(row) << tab << key << told << stored;
    };
    const auto fanOut = [&app](const QString& key, const QString& value) {
        return QStringList{app + "Modify"_L1 + key + u'=' + value, app + "Change"_L1 + key + "=1"_L1,
                           app + "Change"_L1 + key + "=0"_L1};
    };
    add("Language", kTabs[0], Qt::Key_Down, fanOut(u"Language"_s, u"Chinese"_s), u"Chinese"_s);
    add("ScaleFactor", kTabs[0], Qt::Key_Down,
        fanOut(u"ScaleFactor"_s, u"1.75"_s) + QStringList{u"SettingsSystem InterfaceScale=1.75"_s}, u"1.75"_s);
    add("FollowSystemScale", kTabs[0], Qt::Key_Space, {u"SettingsSystem FollowSystem=1"_s}, u"true"_s);
    add("AutoSaveWorkspace", kTabs[0], Qt::Key_Space, {u"SettingsSystem AutoSaveWorkspace=1"_s}, u"true"_s);
    add("AutoStartOnBoot", kTabs[0], Qt::Key_Space, {u"starter=1"_s, u"SettingsSystem AutoStart=1"_s}, u"true"_s);
    add("AutoCheckForUpdates", kTabs[0], Qt::Key_Space, {u"SettingsSystem AutoCheckUpdate=1"_s}, u"true"_s);
    add("Bluetooth", kTabs[1], Qt::Key_Space, {u"SettingsDevice Bluetooth=1"_s});
    add("Brightness", kTabs[1], Qt::Key_End, {u"SettingsDevice Brightness=Bright"_s});
    add("OtgDirection", kTabs[1], Qt::Key_Down, {u"SettingsDevice OtgDirection=0"_s});
    add("UsbCCharging", kTabs[1], Qt::Key_End, {u"SettingsDevice UsbCCharging=Disabled"_s});
    add("DisplayMode", kTabs[1], Qt::Key_Down, {u"SettingsDevice DisplayMode=Live streaming mode"_s});
    add("AutoPoweroff", kTabs[1], Qt::Key_Space, {u"SettingsDevice AutoPoweroff=0"_s});
    add("MainButtonSingle", kTabs[1], Qt::Key_End, {u"SettingsDevice MainButtonSingle=13"_s});
    add("MainButtonDouble", kTabs[1], Qt::Key_Down, {u"SettingsDevice MainButtonDouble=1"_s});
    add("SampleRate", kTabs[2], Qt::Key_Up, {u"SettingsAudio SampleRate=44100"_s}, u"rate 44100"_s);
    add("BufferSize", kTabs[2], Qt::Key_Up, {u"SettingsAudio BufferSize=128"_s}, u"buffer 77 256 128 0"_s);
    add("SafeMode", kTabs[2], Qt::Key_Space, {u"SettingsAudio SafeMode=1"_s}, u"buffer"_s);
}

void TestSettingsDialog::rows()
{
    QFETCH(QString, tab);
    QFETCH(Qt::Key, key);
    QFETCH(QStringList, told);
    QFETCH(QString, stored);
    const QString row = QString::fromLatin1(QTest::currentDataTag());
    Bench bench;
    bench.system->setAutoStarter([&bench](bool on) { bench.told += u"starter="_s + QString::number(int(on)); });
    bench.dialog.setCurrentTab(tab);
    QSettings().setValue(u"AutoCheckForUpdates"_s, false);
    bench.press(row, key);
    QCOMPARE(bench.told, told);
    if (tab == kTabs[0])
        QCOMPARE(QSettings().value(row).toString(), stored);
    if (tab == kTabs[2]) {
        QCOMPARE(mDriver.calls.size(), 1);
        QVERIFY2(mDriver.calls.first().startsWith(stored), qPrintable(mDriver.calls.first()));
    }
}

void TestSettingsDialog::settersAreSilent()
{
    Bench bench;
    const QList<int> before = bench.shown();
    bench.system->setLanguage(u"Chinese"_s);
    bench.system->setLanguage(u"Klingon"_s);
    bench.system->setScaleFactor(u"0.75"_s);
    for (const auto set : {&WidgetSytem1::setFollowSystemScale, &WidgetSytem1::setAutoSaveWorkspace,
                           &WidgetSytem1::setAutoStartOnBoot, &WidgetSytem1::setAutoCheckForUpdates})
        (bench.system->*set)(true);
    bench.device->setBluetooth(true);
    bench.device->setAutoPoweroff(false);
    bench.device->setOtgDirection(false);
    bench.device->setBrightness(u"Bright"_s);
    bench.device->setUsbCCharging(u"Disabled"_s);
    bench.device->setDisplayMode(u"Pro audio mode"_s);
    bench.device->setMainButtonSingle(13);
    bench.device->setMainButtonDouble(5);
    bench.audio->setSampleRates({44100, 48000, 96000}, 96000);
    bench.audio->setBufferSizes({64, 128}, 64);
    bench.audio->setSafeMode(true);
    QCOMPARE(bench.told, QStringList());
    QVERIFY(mDriver.calls.isEmpty());
    const QList<int> after = bench.shown();
    for (qsizetype i = 0; i < after.size(); ++i)
        QVERIFY2(after[i] != before[i], qPrintable(QString::number(i)));
    QCOMPARE(bench.row<QComboBox>(u"UsbCCharging"_s)->currentText(), u"Off"_s);
    bench.audio->setSampleRates({44100}, 22050);
    QCOMPARE(bench.row<QComboBox>(u"SampleRate"_s)->currentIndex(), -1);
    bench.audio->setSampleRates({}, 0);
    QVERIFY(!bench.row(u"SampleRate"_s)->isEnabled());
}

/// The number that the device reports, and the place at which the control stands then; 1 before.
void TestSettingsDialog::deviceReports_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<int>("reported");
    QTest::addColumn<int>("place");
    const std::tuple<const char*, int, int> reports[]{
        {"Brightness", 0, 0},       {"Brightness", 2, 2},        {"Brightness", 3, 1},         {"Brightness", -1, 1},
        {"Bluetooth", 0, 0},        {"Bluetooth", 7, 1},         {"OtgDirection", 9, 0},       {"OtgDirection", 0, 1},
        {"UsbCCharging", 1, 0},     {"UsbCCharging", 3, 2},      {"UsbCCharging", 0, 1},       {"UsbCCharging", 4, 1},
        {"AutoPoweroff", 1, 0},     {"AutoPoweroff", 0, 1},      {"MainButtonSingle", 13, 13}, {"MainButtonSingle", 14, 1},
        {"MainButtonDouble", 0, 0}, {"MainButtonDouble", -1, 1},
    };
    for (const auto& [attribute, reported, place] : reports)
        QTest::addRow("%s %d", attribute, reported) << QString::fromLatin1(attribute) << reported << place;
}

void TestSettingsDialog::deviceReports()
{
    QFETCH(QString, attribute);
    QFETCH(int, reported);
    QFETCH(int, place);
    Bench bench;
    auto* combo = bench.row<QComboBox>(attribute);
    auto* toggle = bench.row<QCheckBox>(attribute);
    bench.device->setBrightness(u"Normal"_s);
    bench.device->setBluetooth(true);
    bench.device->setOtgDirection(false);
    bench.device->setUsbCCharging(u"Discharge"_s);
    bench.device->setAutoPoweroff(false);
    bench.device->setMainButtonSingle(1);
    bench.device->setMainButtonDouble(1);
    for (const quillon::InboundRow& row : quillon::inboundRows()) {
        const QVariant value = quillon::inboundValue(row.form, reported);
        if (row.object == u"SettingsDevice" && QStringView(row.attribute) == attribute && value.isValid())
            bench.device->deviceSetter(attribute)(value);
    }
    QCOMPARE(combo != nullptr ? combo->currentIndex() : int(toggle->isChecked()), place);
    QCOMPARE(bench.told, QStringList());
    QVERIFY(!bench.device->deviceSetter(u"DisplayMode"));
}

void TestSettingsDialog::modes()
{
    Bench bench;
    auto* mode = bench.row<QComboBox>(u"DisplayMode"_s);
    bench.device->setDisplayMode(u"Pro audio mode"_s);
    emit mode->activated(2); // the present one, chosen once more
    QCOMPARE(bench.told, QStringList());
    bench.device->setDisplayMode(u"Easy mode"_s);
    QCOMPARE(mode->currentIndex(), 2);
    emit mode->activated(2); // the one that is shown, but not present
    QCOMPARE(bench.told, QStringList{u"SettingsDevice DisplayMode=Pro audio mode"_s});
}

void TestSettingsDialog::scaleBetweenTheSteps()
{
    Bench bench;
    auto* scale = bench.row<QComboBox>(u"ScaleFactor"_s);
    bench.system->setScaleFactor(u"1.333"_s);
    QCOMPARE(scale->currentText(), u"133.3%"_s);
    QCOMPARE(scale->count(), 8);
    for (const char* nonsense : {"abc", "0", "-1", "nan", "inf"})
        bench.system->setScaleFactor(QLatin1String(nonsense));
    QCOMPARE(scale->currentText(), u"133.3%"_s);
    QTest::keyClick(scale, Qt::Key_Up);
    QCOMPARE(QSettings().value("ScaleFactor").toString(), u"1.25"_s);
    QCOMPARE(scale->currentText(), u"125%"_s);
    QCOMPARE(scale->count(), 7);
}

void TestSettingsDialog::refusedByTheDriver()
{
    Bench bench;
    bench.dialog.setCurrentTab(u"ASIO"_s);
    mDriver.failing = {u"SetSampleRate"_s, u"SetASIOBufferPreferredSize"_s};
    const QList<int> before = bench.shown();
    for (const auto& [row, key] :
         {std::pair{u"SampleRate"_s, Qt::Key_Up}, {u"BufferSize"_s, Qt::Key_Up}, {u"SafeMode"_s, Qt::Key_Space}}) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"failed to set"_s));
        bench.press(row, key);
    }
    QCOMPARE(bench.shown(), before);
    QCOMPARE(bench.told, QStringList());
}

void TestSettingsDialog::autoSaveKeepsTheEdits()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"work/R47_Live_A.ini"_s);
    const auto onDisk = [&path] { return QSettings(path, QSettings::IniFormat).value("Probe/Value", 0).toInt(); };
    WorkspaceSubject& subject = WorkspaceSubject::instance();
    Probe probe;
    subject.setWorkspaceInfo(u"R47"_s, folder.filePath(u"work"_s), u"R47_Live_"_s);
    subject.addObserver(&probe);
    subject.createWorkspace(u"A"_s);
    subject.modifyWorkspace(u"A"_s, 1);
    QSettings().setValue("AutoSaveWorkspace", false);
    probe.set(5);
    QCOMPARE(onDisk(), 0);
    {
        Bench bench;
        bench.press(u"AutoSaveWorkspace"_s, Qt::Key_Space);
        QCOMPARE(onDisk(), 5);
        bench.press(u"AutoSaveWorkspace"_s, Qt::Key_Space);
        QCOMPARE(bench.told, (QStringList{u"SettingsSystem AutoSaveWorkspace=1"_s, u"SettingsSystem AutoSaveWorkspace=0"_s}));
        // A page without a way to save by hand is always written at once.
        subject.modifyWorkspace(u"A"_s, 0);
        QSettings().setValue("AutoSaveWorkspace", true);
        bench.system->setAutoSaveWorkspace(true);
        bench.system->setWorkspaceFixed(true);
        bench.press(u"AutoSaveWorkspace"_s, Qt::Key_Space);
        QCOMPARE(QSettings().value("AutoSaveWorkspace").toBool(), false);
        QVERIFY(!bench.row<QCheckBox>(u"AutoSaveWorkspace"_s)->isChecked());
        probe.set(7);
        subject.close();
        QCOMPARE(onDisk(), 7);
        subject.modifyWorkspace(u"A"_s, 1);
        bench.system->setWorkspaceFixed(false);
        // The way back into the file is gone: the edits stay private, with their save button.
        probe.set(6);
        QVERIFY(QDir(folder.filePath(u"work"_s)).removeRecursively());
        bench.told.clear();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"failed to copy file"_s));
        bench.press(u"AutoSaveWorkspace"_s, Qt::Key_Space);
        QVERIFY(!bench.row<QCheckBox>(u"AutoSaveWorkspace"_s)->isChecked());
        QCOMPARE(QSettings().value("AutoSaveWorkspace").toBool(), false);
        QCOMPARE(bench.told, QStringList());
    }
    subject.clearObservers();
    subject.close();
}

void TestSettingsDialog::versions()
{
    Bench bench;
    FakeGateway gateway;
    bench.about->setFirmwareVersion(u"1.05"_s);
    bench.about->setSoftwareVersion(u"1.2.0"_s);
    bench.dialog.setCurrentTab(u"About"_s);
    QCOMPARE(bench.text(u"FirmwareVersion"_s), u"V1.05"_s); // nowhere to ask
    bench.dialog.setCurrentTab(u"System"_s);
    bench.about->setUpdateGateway(&gateway);
    QVERIFY(gateway.calls.isEmpty());

    bench.dialog.setCurrentTab(u"About"_s);
    bench.dialog.setCurrentTab(u"System"_s);
    bench.dialog.setCurrentTab(u"About"_s);
    QCOMPARE(gateway.calls, QStringList{u"fetch"_s}); // not twice at once
    QCOMPARE(bench.text(u"FirmwareVersion"_s), u"V1.05  =>  Fetching..."_s);
    QVERIFY(!bench.row(u"SoftwareVersion"_s)->isVisible());
    emit gateway.fetchFinished(false);
    QCOMPARE(bench.text(u"SoftwareVersion"_s), u"V1.2.0  =>  Fetch failed"_s);
    QCOMPARE(bench.row<QPushButton>(u"FirmwareVersion"_s)->text(), u"Retry"_s);
    bench.press(u"SoftwareVersion"_s, Qt::Key_Space);
    QCOMPARE(gateway.calls.size(), 2);

    gateway.manifest = {{u"Device/R47/Version"_s, u"1.06"_s}, {u"Software/Win/Version"_s, u"1.10.0"_s}};
    emit gateway.fetchFinished(true);
    QCOMPARE(bench.text(u"FirmwareVersion"_s), u"V1.05  =>  V1.06"_s);
    QCOMPARE(bench.text(u"SoftwareVersion"_s), u"V1.2.0"_s); // as texts, the older one
    QVERIFY(!bench.row(u"SoftwareVersion"_s)->isVisible());
    bench.about->setSoftwareVersion(u"1.0.9"_s);
    QCOMPARE(bench.text(u"SoftwareVersion"_s), u"V1.0.9 Beta  =>  V1.10.0"_s);
    emit gateway.fetchFinished(false); // somebody else's
    bench.press(u"FirmwareVersion"_s, Qt::Key_Space);
    bench.press(u"SoftwareVersion"_s, Qt::Key_Space);
    QCOMPARE(bench.told, (QStringList{u"SettingsAbout UpdateFirmware=1"_s, u"SettingsAbout UpdateSoftware=1"_s}));
    // A device that has not told its firmware yet is offered none, and a manifest that tells nonsense counts as empty.
    bench.about->setFirmwareVersion({});
    QVERIFY(!bench.row(u"FirmwareVersion"_s)->isVisible());
    gateway.manifest[u"Software/Win/Version"_s] = u"9\n<b>"_s.repeated(20);
    QTest::ignoreMessage(QtWarningMsg, "WidgetAbout1 //version of the manifest is none");
    bench.about->setSoftwareVersion(u"1.0.9"_s);
    QCOMPARE(bench.text(u"SoftwareVersion"_s), u"V1.0.9 Beta"_s);
}

void TestSettingsDialog::resetQuestion_data()
{
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<int>("resets");
    QTest::newRow("keep") << QStringList{u"PushButton2"_s} << 1;
    QTest::newRow("clear") << QStringList{u"CheckBox2"_s, u"PushButton2"_s} << 1;
    QTest::newRow("cancel") << QStringList{u"CheckBox2"_s, u"PushButton1"_s} << 0;
    QTest::newRow("close") << QStringList{} << 0;
}

void TestSettingsDialog::resetQuestion()
{
    QFETCH(QStringList, buttons);
    QFETCH(int, resets);
    Bench bench;
    bench.dialog.setCurrentTab(u"Device"_s);
    bench.press(u"RestoreDefault"_s, Qt::Key_Space);
    QPointer<QWidget> question = QApplication::activeModalWidget();
    QVERIFY(question);
    for (const QString& button : buttons)
        QTest::mouseClick(question->findChild<QWidget*>(button), Qt::LeftButton);
    if (buttons.isEmpty())
        QTest::keyClick(question, Qt::Key_Escape);
    QTRY_VERIFY(!question);
    QCOMPARE(bench.told, QStringList(resets, u"SettingsDevice RestoreDefault=1"_s));
}

void TestSettingsDialog::languages()
{
    Bench bench;
    bench.device->setMainButtonDouble(9);
    bench.device->setBrightness(u"Bright"_s);
    const QList<int> before = bench.shown();
    for (const char* language : {"Chinese", "English", "Chinese", "Klingon"})
        for (AppSettingsObserver* page :
             std::initializer_list<AppSettingsObserver*>{&bench.dialog, bench.device, bench.audio, bench.about})
            page->onAppSettingsChanged({}, u"Language"_s, QLatin1String(language));
    QCOMPARE(bench.shown(), before);
    QCOMPARE(bench.told, QStringList());
    QCOMPARE(bench.dialog.windowTitle(), u"设置"_s);
    QCOMPARE(bench.row<QRadioButton>(u"tabDevice"_s)->text(), u"设备设置"_s);
    QCOMPARE(bench.row<QComboBox>(u"MainButtonDouble"_s)->currentText(), u"模式切换"_s);
    const QRegularExpression latin(u"^[ -~]+$"_s);
    for (const QLabel* label : bench.device->findChildren<QLabel*>()) {
        QVERIFY2(!latin.match(label->text()).hasMatch(), qPrintable(label->text()));
        QCOMPARE(label->buddy()->accessibleName(), label->text()); // what a screen reader calls the control
    }
}

void TestSettingsDialog::nothingIsClipped_data()
{
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QString>("language");
    for (const char* scale : {"0.5", "0.75", "1", "1.25", "1.5", "1.75", "2"})
        for (const char* language : {"English", "Chinese"})
            QTest::addRow("%s %s", scale, language) << QString::fromLatin1(scale) << QString::fromLatin1(language);
}

void TestSettingsDialog::nothingIsClipped()
{
    QFETCH(QString, scale);
    QFETCH(QString, language);
    Bench bench;
    FakeGateway gateway;
    bench.about->setFirmwareVersion(u"1.05"_s);
    bench.about->setSoftwareVersion(u"1.2.11"_s);
    bench.about->setUpdateGateway(&gateway);
    AppSettingsSubject::instance().changeLanguage(language).changeScaleFactor(scale);
    bench.dialog.resize(QSize(780, 490) * scale.toDouble() + QSize(42, 42)); // whatever the screen of the test is
    for (const QString& tab : kTabs) {
        bench.dialog.setCurrentTab(tab);
        emit gateway.fetchFinished(false);
        QCoreApplication::processEvents();
        for (const QLabel* label : bench.dialog.findChildren<QLabel*>())
            if (label->isVisible())
                QVERIFY2(fits(label), qPrintable(label->text()));
        for (const QComboBox* combo : bench.dialog.findChildren<QComboBox*>())
            for (int i = 0; combo->isVisible() && i < combo->count(); ++i)
                QVERIFY2(combo->fontMetrics().horizontalAdvance(combo->itemText(i)) <= combo->width() - combo->height(),
                         qPrintable(combo->itemText(i)));
        for (const QScrollArea* scroll : bench.dialog.findChildren<QScrollArea*>())
            QVERIFY2(!scroll->isVisible() || !scroll->verticalScrollBar()->isVisible(), qPrintable(tab));
    }
}

void TestSettingsDialog::keyboard()
{
    Bench bench;
    QVERIFY(bench.row(u"tabSystem"_s)->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QVERIFY(bench.device->isVisible());
    const QAccessibleInterface* tab = QAccessible::queryAccessibleInterface(bench.row(u"tabDevice"_s));
    QVERIFY(tab->role() == QAccessible::RadioButton && tab->state().checked && tab->text(QAccessible::Name) == u"Device"_s);
    QStringList order;
    for (int i = 0; i < 9; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order += QApplication::focusWidget()->objectName();
    }
    QCOMPARE(order.join(u' '), u"Bluetooth Brightness OtgDirection UsbCCharging DisplayMode AutoPoweroff RestoreDefault "
                               "MainButtonSingle MainButtonDouble"_s);
    QTest::keyClick(bench.row(u"Bluetooth"_s), Qt::Key_Return); // no default button takes it
    QVERIFY(bench.dialog.isVisible());
    QTest::keyClick(bench.row(u"Bluetooth"_s), Qt::Key_Escape);
    QVERIFY(!bench.dialog.isVisible());
    QCOMPARE(bench.told, QStringList());
    QTest::ignoreMessage(QtWarningMsg, "TabWidgetS1M1::addPage //no place for page: Nowhere");
    QVERIFY(!bench.dialog.addPage(u"Nowhere"_s, new QWidget));
}

/// A wheel over a closed combo box or a switch moves the page, never the setting.
void TestSettingsDialog::wheelScrolls()
{
    Bench bench;
    bench.dialog.setCurrentTab(u"Device"_s);
    bench.dialog.resize(bench.dialog.width(), bench.dialog.minimumHeight());
    QCoreApplication::processEvents();
    QScrollBar* bar = nullptr;
    for (QScrollArea* area : bench.dialog.findChildren<QScrollArea*>())
        bar = area->isVisible() ? area->verticalScrollBar() : bar;
    QVERIFY(bar->isVisible());
    const QList<int> before = bench.shown();
    for (const char* row : {"Bluetooth", "Brightness", "OtgDirection"}) {
        auto* control = bench.row(QLatin1String(row));
        control->setFocus(Qt::TabFocusReason);
        const int from = bar->value();
        const QPointF middle = control->rect().center();
        QWheelEvent event(middle, control->mapToGlobal(middle), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // only a turn of the hand is passed on
        qApp->notify(control, &event);
        QVERIFY2(bar->value() > from, row);
        bar->setValue(0);
    }
    QCOMPARE(bench.shown(), before);
    QCOMPARE(bench.told, QStringList());
}

QTEST_MAIN(TestSettingsDialog)
#include "tst_settings_dialog.moc"
