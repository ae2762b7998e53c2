// The parts of the console window that need no device: identity, routing by page, page switch and sizes.

#include "app/AppSettingsSubject.h"
#include "console/FirmwareIdentity.h"
#include "console/InboundRouter.h"
#include "console/MainWindow_R47.h"
#include "console/PageSize.h"
#include "console/ducking/R47_PrivateWidget1.h"
#include "device/InboundTable.h"
#include "device/USBAudioAPI.h"
#include "equalizer/window/EqualizerS1M1.h"
#include "resources/Resources.h"
#include "tests/device/FakeTable.h"
#include "workspace/WorkspaceSubject.h"

#include <QDir>
#include <QMenu>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

/// Notes what it is given, under each attribute that it knows.
struct NotingStrip : StripEndpoint {
    QStringList known;
    QStringList seen;
    DeviceSetter deviceSetter(QStringView attribute) override
    {
        if (!known.contains(attribute)) {
            return {};
        }
        return [this, name = attribute.toString()](const QVariant& value) { seen += name + u'=' + value.toString(); };
    }
};

} // namespace

class TestConsole : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void identityComesOnceInAnyOrder();
    void versionText();
    void reportsGoToTheCurrentPageOnly();
    void plugStatesGoToAllPages();
    void firstStartShowsLiveAtItsSize();
    void recoveryPageIsFixed();
    void widthIsTheUsersAndHeightIsNot();
    void scaleChangeDropsSizesButHandshakeDoesNot();
    void easyAsFirstPageBorrowsLivesSize();
    void closingOnlyHides();
    void pageSwitchOpensItsOwnFolder();
    void whatIsNotThePagesIsNotKept();
    void freshProListsItsOwnStrips();

private:
    QTemporaryDir mFolder;
    faketable::Driver mDriver;
};

void TestConsole::initTestCase()
{
    initResources();
    QVERIFY(mFolder.isValid());
    QVERIFY(QDir::setCurrent(mFolder.path()));
    mDriver.devices = {u"R47"_s};
    faketable::driver = &mDriver;
    USBAudioAPI::setLibrary(std::make_unique<faketable::FakeDll>());
    QVERIFY(USBAudioAPI::instance().Init());
}

void TestConsole::init()
{
    // The offscreen platform has no window manager to tell sizes to, and says so.
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support )"_s));
    QSettings().clear();
    AppSettingsSubject::instance().init();
    QSettings().setValue("ScaleFactor", 1.0);
}

void TestConsole::identityComesOnceInAnyOrder()
{
    FirmwareIdentity identity;
    QCOMPARE(identity.take(3, 0xAB), QString());
    QCOMPARE(identity.take(1, 1), QString());
    QCOMPARE(identity.take(5, 255), QString());
    QCOMPARE(identity.take(2, 2), QString());
    QCOMPARE(identity.take(6, 9), QString());
    QCOMPARE(identity.take(0, 9), QString());
    QCOMPARE(identity.take(4, 16), u"01.02.ab.10.ff"_s);
    for (int part = 1; part <= 5; ++part) {
        QCOMPARE(identity.take(part, part), QString());
    }
}

void TestConsole::versionText()
{
    QCOMPARE(firmwareVersionText(1), u"0.01"_s);
    QCOMPARE(firmwareVersionText(100), u"1.00"_s);
    QCOMPARE(firmwareVersionText(203), u"2.03"_s);
}

void TestConsole::reportsGoToTheCurrentPageOnly()
{
    InboundRouter router;
    NotingStrip live;
    NotingStrip pro;
    live.known = pro.known = {u"GAIN"_s, u"MUTE"_s, u"MIC"_s};
    router.bind(PageLive, u"Input_IN1"_s, live);
    router.bind(PageProf, u"Input_IN1"_s, pro);

    QVERIFY(router.route(PageLive, {.code = 0x2104, .value = 33}));
    QVERIFY(router.route(PageProf, {.code = 0x2105, .value = 7}));
    QVERIFY(router.route(PageLive, {.code = 0x2102, .value = 9}));
    QVERIFY(!router.route(PageLive, {.code = 0x2103, .value = 1})); // no such setter on this strip
    QVERIFY(!router.route(PageMble, {.code = 0x2104, .value = 1})); // no such strip on this page
    QVERIFY(!router.route(PageLive, {.code = 0x5102, .value = 1})); // loopbacks are not reported
    QVERIFY(!router.route(99, {.code = 0x2104, .value = 1}));
    QCOMPARE(live.seen, (QStringList{u"GAIN=33"_s, u"MIC=Mic1"_s}));
    QCOMPARE(pro.seen, QStringList{u"MUTE=true"_s});
}

void TestConsole::plugStatesGoToAllPages()
{
    InboundRouter router;
    NotingStrip live;
    NotingStrip pro;
    live.known = pro.known = {u"Plug"_s};
    router.bind(PageLive, u"Input_IN1"_s, live);
    router.bind(PageProf, u"Input_IN1"_s, pro);
    QVERIFY(router.route(PageTyro, {.code = 0x2106, .value = 0}));
    QVERIFY(router.route(PageLive, {.code = 0x2106, .value = 1}));
    QCOMPARE(live.seen, (QStringList{u"Plug=true"_s, u"Plug=false"_s}));
    QCOMPARE(pro.seen, live.seen);

    for (const auto& [page, object] : {std::pair{PageTyro, u"Input_IN1"_s}, {PageProf, u"Output_HP"_s}}) {
        router.bind(page, object, pro); // no marks there
    }
    QVERIFY(router.route(PageLive, {.code = 0x2106, .value = 0}) && !router.route(PageProf, {.code = 0x6406, .value = 0}));
    QCOMPARE(pro.seen.size(), 3);
    live.seen.pop_back();

    router.bind(PageLive, u"Output_OTGOUT", u"Plug", live.deviceSetter(u"Plug"));
    QVERIFY(router.route(PageMble, {.code = 0x6206, .value = 0}));
    QVERIFY(router.route(PageMble, {.code = 0x6207, .value = 1}));
    QCOMPARE(live.seen.mid(2), (QStringList{u"Plug=true"_s, u"Plug=false"_s}));
}

void TestConsole::firstStartShowsLiveAtItsSize()
{
    MainWindow_R47 window;
    window.applyWorkMode(2);
    QCOMPARE(window.pageId(), static_cast<int>(PageLive));
    QCOMPARE(window.findChild<QStackedWidget*>(u"stackedWidget"_s)->currentIndex(), 3);
    QCOMPARE(window.size(), QSize(1100, 645));
    QCOMPARE(QSettings().value("R47/PageLiveWidth").toInt(), 1100);
    QVERIFY(!QSettings().value("R47/PageLiveFactor1").toByteArray().isEmpty());
    window.applyWorkMode(9);
    QCOMPARE(window.pageId(), static_cast<int>(PageLive));
}

void TestConsole::recoveryPageIsFixed()
{
    QSettings().setValue("ScaleFactor", 1.25);
    MainWindow_R47 window;
    window.applyWorkMode(-1);
    window.resize(300, 300);
    QCOMPARE(window.size(), QSize(1375, 806));
    QVERIFY(window.statusBar()->isHidden());
    window.applyWorkMode(3);
    QVERIFY(!window.statusBar()->isHidden());
    window.resize(1800, 100);
    QCOMPARE(window.size(), QSize(1800, 806));
}

void TestConsole::widthIsTheUsersAndHeightIsNot()
{
    {
        MainWindow_R47 window;
        window.applyWorkMode(2);
        window.show();
        window.resize(1333, 2000);
        QCOMPARE(window.height(), 645);
        window.resize(20, 645);
        QCOMPARE(window.width(), 1100);
        window.resize(1333, 645);
        window.applyWorkMode(3);
        QCOMPARE(window.width(), 1100);
    }
    QCOMPARE(QSettings().value("R47/PageLiveWidth").toInt(), 1333);
    MainWindow_R47 again;
    again.applyWorkMode(2);
    QCOMPARE(again.width(), 1333);
}

void TestConsole::scaleChangeDropsSizesButHandshakeDoesNot()
{
    QSettings().setValue("R47/PageProfWidth", 1500);
    QSettings().setValue("R47/PageLiveWidth", 1400);
    MainWindow_R47 window;
    window.finishAuth(2); // broadcasts the stored scale
    QCOMPARE(window.width(), 1400);
    window.finishAuth(2); // and again on a mode report
    QCOMPARE(window.width(), 1400);
    AppSettingsSubject::instance().changeScaleFactor(u"1.5"_s);
    QCOMPARE(window.size(), QSize(1650, 967));
    QVERIFY(!QSettings().contains("R47/PageProfWidth"));
}

void TestConsole::easyAsFirstPageBorrowsLivesSize()
{
    QSettings().setValue("R47/PageID", 4);
    MainWindow_R47 window;
    window.applyWorkMode(2);
    QCOMPARE(window.pageId(), static_cast<int>(PageTyro));
    QCOMPARE(window.size(), QSize(1100, 645));
    QVERIFY(!QSettings().contains("R47/PageLiveWidth"));
    QVERIFY(QFile::exists(u"Workspace/R47/Tyro/R47_Tyro_configFile.ini"_s));
}

void TestConsole::closingOnlyHides()
{
    MainWindow_R47 window;
    window.applyWorkMode(2);
    window.show();
    QVERIFY(!window.close());
    QVERIFY(window.isHidden());
}

void TestConsole::pageSwitchOpensItsOwnFolder()
{
    MainWindow_R47 window;
    QSignalSpy events(&WorkspaceSubject::instance(), &WorkspaceSubject::attributeChanged);
    window.applyWorkMode(2);
    window.applyWorkMode(1);
    QStringList brackets;
    for (const auto& event : events) {
        if (event.at(1) == u"LoadSettings"_s) {
            brackets += event.at(2).toString();
        }
    }
    QCOMPARE(brackets, (QStringList{u"1"_s, u"0"_s, u"1"_s, u"0"_s}));
    QCOMPARE(QDir(u"Workspace/R47/Mble"_s).entryList({u"R47_Mble_*.ini"_s}).size(), 1);
    QVERIFY(!QSettings().value("R47/R47_Mble_Workspace").toString().isEmpty());
    QCOMPARE(QSettings().value("R47/PageID").toInt(), 3);
}

/// Of a window that never showed a page, a workspace that cannot be opened, and a page that has no ducking.
void TestConsole::whatIsNotThePagesIsNotKept()
{
    QSettings().setValue("R47/PageLiveWidth", 1800);
    {
        MainWindow_R47 window; // its unit is silent, and somebody fetches the window from the tray
        window.show();
        QTest::qWait(300);
    }
    QCOMPARE(QSettings().value("R47/PageLiveWidth").toInt(), 1800);

    QSettings().setValue("ScaleFactor", 2.0);
    MainWindow_R47 window;
    window.applyWorkMode(2);
    window.show();
    const auto* splitter = window.findChild<QSplitter*>(u"PageLiveSplitterIE_MLO"_s);
    QCOMPARE(splitter->handleWidth(), 6);
    auto* ducking = window.findChild<R47_PrivateWidget1*>();
    ducking->show();
    auto* menu = window.findChild<QWidget*>(u"Output_HP"_s)->findChild<QMenu*>();
    menu->popup({});
    const QString easy = u"Workspace/R47/Tyro/R47_Tyro_configFile.ini"_s;
    QFile::remove(easy);
    QVERIFY(QDir().mkpath(easy));
    QTest::ignoreMessage(QtWarningMsg, "WorkspaceSubject::createFile //failed to create file");
    QTest::ignoreMessage(QtWarningMsg, "WorkspaceSubject::modifyFile //file does not exist");
    window.setPage(PageTyro);
    QVERIFY(!WorkspaceSubject::instance().isOpen() && ducking->isHidden() && menu->isHidden());
    window.setPage(PageLive);
    QVERIFY(WorkspaceSubject::instance().isOpen());
    QCOMPARE(splitter->handleWidth(), 6);
    QVERIFY(QDir().rmdir(easy));
    window.setPage(PageProf);
    auto* equalizer = window.findChild<EqualizerS1M1*>();
    equalizer->show();
    window.setPage(PageLive);
    QVERIFY(equalizer->isHidden());
}

void TestConsole::freshProListsItsOwnStrips()
{
    MainWindow_R47 window;
    window.applyWorkMode(3);
    WorkspaceSubject& subject = WorkspaceSubject::instance();
    const QString path = subject.filePath();
    subject.close();
    const QSettings file(path, QSettings::IniFormat);
    const QStringList first = file.value("FieldMixer/MixA_Visible").toStringList();
    QCOMPARE(first.size(), 9);
    QVERIFY(!first.contains(u"FX"_s));
    QCOMPARE(file.value("FieldMixer/MixB_Visible").toStringList().size(), 8);
}

QTEST_MAIN(TestConsole)
#include "tst_console.moc"
