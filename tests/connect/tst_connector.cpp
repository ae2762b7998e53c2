#include "Fakes.h"
#include "app/AppSettingsSubject.h"
#include "app/FirstPicture.h"
#include "connect/DeviceConnector.h"
#include "connect/DeviceConnectorViewBase.h"
#include "resources/Resources.h"

#include <QDialog>
#include <QEventLoop>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

const QString kVersionPath = u"Software/Win/Version"_s;

/// The connection window with its waits shortened.
struct Rig {
    explicit Rig(FakeGateway* gateway = nullptr) : connector(gateway)
    {
        connector.setTiming({5, 200, 20});
        connector.registerMainWindow(u"R47"_s, [this](DeviceConnector*) { return window = new FakeWindow; });
    }
    void show(const QStringList& devices = {u"R47"_s})
    {
        QHash<QString, QPair<QString, QString>> table;
        for (const QString& device : devices) {
            table.insert(device, {u"0x152A"_s, u"0x875C"_s});
        }
        connector.showSeries(u"Vantor"_s, table);
        QVERIFY2(!window, "a console is built before the connection window was seen");
        if (connector.isVisible()) {
            bool seen = false;
            afterFirstPicture(connector, [&seen] { seen = true; }); // behind what the window asked for
            QTRY_VERIFY(seen);
            QCoreApplication::processEvents();
        }
    }
    // With a device, up to its running console.
    void showConsole()
    {
        faketable::driver->devices = {u"R47"_s};
        show();
        window->finishAuth(2);
    }
    int page() const { return connector.findChild<DeviceConnectorViewBase*>()->currentPage(); }
    QString text(const QString& label) const { return connector.findChild<QLabel*>(label)->text(); }
    void press(const QString& value) { connector.in_widgetConnectView_attributeChanged(QString(), u"Update"_s, value); }

    DeviceConnector connector;
    QPointer<FakeWindow> window;
};

} // namespace

class tst_connector : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init();
    void startUp();
    void firstLook();
    void unknownNames();
    void severalDevicesResolve();
    void failureRestsThenLooksAgain();
    void consoleTakesOverAndComesBack();
    void openDialogOutlivesNothing();
    void retryStepRepeats();
    void softwareDownload();
    void firmwareFlow();
    void updatesWithoutHost();
    void closingHidesAndQuitEnds();

private:
    std::unique_ptr<faketable::Driver> mDriver;
};

void tst_connector::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    mDriver = std::make_unique<faketable::Driver>();
    installFakes(*mDriver);
    QSettings().clear();
    AppSettingsSubject::instance().init();
    QCOMPARE(FakeWindow::alive, 0);
}

void tst_connector::startUp()
{
    struct StartUp {
        bool installed;
        bool autoCheck;
        bool reachable;
        QString version;
        int page;
        bool looks; // at the driver's list from then on
    };
    const StartUp rows[] = {
        {true, false, true, u"9.0.0"_s, 0, true}, {true, true, true, u"1.2.0"_s, 0, true},  // the same
        {true, true, true, u"1.2.1"_s, 6, false}, {true, true, true, u"1.10.0"_s, 0, true}, // newer by number only
        {true, true, false, {}, 7, false},        {false, false, true, {}, 2, false},
        {false, true, true, u"1.2.0"_s, 2, false}};
    for (const StartUp& row : rows) {
        mDriver->looks = 0;
        if (!row.installed) {
            QTest::ignoreMessage(QtWarningMsg, "USBAudioAPI::Init //failed to check api version");
        }
        mDriver->minor = row.installed ? 13 : 12;
        USBAudioAPI::instance().Init();
        QSettings().setValue("AutoCheckForUpdates", row.autoCheck);
        FakeGateway gateway;
        gateway.reachable = row.reachable;
        gateway.manifest.insert(kVersionPath, row.version);
        Rig rig(&gateway);
        int pageWhileWaiting = -1;
        gateway.whileWaiting = [&] { pageWhileWaiting = rig.page(); };
        rig.show();
        QCOMPARE(rig.page(), row.page);
        QCOMPARE(gateway.calls, QStringList{row.autoCheck ? u"wait"_s : u"fetch"_s});
        QCOMPARE(pageWhileWaiting, row.autoCheck ? 5 : -1);
        QVERIFY(rig.connector.isVisible());
        QCOMPARE(rig.connector.size(), QSize(510, 390));
        if (row.looks) {
            QTRY_VERIFY(mDriver->looks > 2);
        } else {
            QTest::qWait(30);
            QCOMPARE(mDriver->looks, 0);
        }
    }
}

void tst_connector::firstLook()
{
    const std::tuple<QStringList, int, int> looks[] = {{{u"Zebra"_s, u"Zebra"_s, u"R47"_s}, 1, 1}, {{u"R47"_s, u"R48"_s}, 0, 0}};
    for (const auto& [present, page, windows] : looks) {
        mDriver->devices = present;
        Rig rig;
        rig.show({u"R47"_s, u"R48"_s});
        QCOMPARE(rig.page(), page);
        QCOMPARE(FakeWindow::alive, windows);
    }
}

void tst_connector::unknownNames()
{
    Rig rig;
    QTest::ignoreMessage(QtWarningMsg, "DeviceConnector::showSeries // series Nebula is not registered in mConnectViewCreators");
    rig.connector.showSeries(u"Nebula"_s, {});
    QVERIFY(!rig.connector.isVisible());
    mDriver->devices = {u"R48"_s};
    QTest::ignoreMessage(QtWarningMsg, "DeviceConnector::in_widgetConnectView_attributeChanged // device R48 is not registered in "
                                       "mMainWindowCreators");
    rig.show({u"R48"_s});
    QTest::qWait(30); // a second warning would fail the test
    QCOMPARE(rig.page(), 0);
}

void tst_connector::severalDevicesResolve()
{
    mDriver->devices = {u"R47"_s, u"R47"_s};
    Rig rig;
    rig.show();
    QCOMPARE(rig.page(), 4);
    mDriver->devices.clear();
    QTRY_COMPARE(rig.page(), 0);
    mDriver->devices = {u"R47"_s, u"R47"_s};
    QTRY_COMPARE(rig.page(), 4);
    mDriver->devices.removeLast();
    QTRY_COMPARE(rig.page(), 1);
    QCOMPARE(FakeWindow::alive, 1);
}

void tst_connector::failureRestsThenLooksAgain()
{
    mDriver->devices = {u"R47"_s};
    Rig rig;
    rig.show();
    QPointer<FakeWindow> first = rig.window;
    first->finishAuth(0);
    QVERIFY2(first, "destroyed inside its own signal");
    QCOMPARE(rig.page(), 3);
    first->finishAuth(2); // an answer that was already on its way
    QVERIFY(!first->isVisible());
    QTRY_VERIFY(!first);
    const int looks = mDriver->looks;
    QCOMPARE(rig.page(), 3);
    QCOMPARE(mDriver->looks, looks);
    QTRY_COMPARE(rig.page(), 1);

    // The same under a console, which was the only window.
    rig.window->finishAuth(2);
    QVERIFY(!rig.connector.isVisible());
    rig.window->finishAuth(0);
    QVERIFY(rig.connector.isVisible());
    QCOMPARE(rig.page(), 3);
}

void tst_connector::consoleTakesOverAndComesBack()
{
    Rig rig;
    rig.showConsole();
    QVERIFY(!rig.connector.isVisible());
    QVERIFY(rig.window->isVisible());
    const int looks = mDriver->looks;
    QSettings().setValue("ScaleFactor", 2.0);
    QTest::qWait(30);
    QVERIFY2(mDriver->looks <= looks + 2, "looks at the list while a console is up");

    QPointer<FakeWindow> first = rig.window;
    mDriver->devices.clear();
    first->in_mDevice_deviceDisconnected();
    QVERIFY2(first, "destroyed inside its own signal");
    QVERIFY(!first->isVisible());
    QVERIFY(rig.connector.isVisible());
    QCOMPARE(rig.connector.size(), QSize(680, 520));
    QCOMPARE(rig.page(), 0);
    // The next device comes before the old window has gone: never are there two.
    mDriver->devices = {u"R47"_s};
    rig.connector.in_mTimer_timeout();
    QVERIFY(!first);
    QCOMPARE(FakeWindow::alive, 1);
}

void tst_connector::openDialogOutlivesNothing()
{
    Rig rig;
    rig.showConsole();
    QPointer<FakeWindow> first = rig.window;
    QEventLoop program;
    bool survivedDialog = false;
    QTimer::singleShot(0, &program, [&] {
        QDialog dialog(first);
        QTimer::singleShot(10, &dialog, [&] { first->in_mDevice_deviceDisconnected(); });
        dialog.exec();
        // Stands for what cannot be closed from outside: a menu, the desktop's own file dialog.
        QEventLoop foreign;
        QTimer::singleShot(40, &foreign, &QEventLoop::quit);
        foreign.exec();
        survivedDialog = first;
    });
    QTimer watch;
    connect(&watch, &QTimer::timeout, &program, [&] {
        if (rig.window != nullptr && rig.window != first) {
            program.quit();
        }
    });
    watch.start(10);
    QTimer::singleShot(5000, &program, &QEventLoop::quit);
    program.exec();
    QVERIFY2(survivedDialog, "destroyed under its own dialog");
    QVERIFY(!first);
    QVERIFY(rig.window);
}

void tst_connector::retryStepRepeats()
{
    FakeGateway gateway;
    gateway.reachable = false;
    mDriver->devices = {u"R47"_s};
    Rig rig(&gateway);
    rig.show();
    rig.press(u"RetryFetch"_s);
    QCOMPARE(rig.page(), 5);
    emit gateway.fetchFinished(false);
    QCOMPARE(rig.page(), 7);
    rig.press(u"RetryFetch"_s);
    QCOMPARE(gateway.calls, (QStringList{u"wait"_s, u"fetch"_s, u"fetch"_s}));

    gateway.manifest.insert(kVersionPath, u"1.3.0"_s);
    gateway.reads = 0;
    emit gateway.fetchFinished(true);
    QCOMPARE(gateway.reads, 2); // one step for each retry so far
    QCOMPARE(rig.page(), 6);
    QCOMPARE(rig.text(u"Page6Label1"_s), u"Available version : V1.3.0"_s);

    // With nothing newer the window rests: a device that is there is not even looked for.
    gateway.manifest.clear();
    emit gateway.fetchFinished(true);
    QTest::qWait(30);
    QCOMPARE(rig.page(), 0);
    QCOMPARE(FakeWindow::alive, 0);
    rig.press(u"Cancel"_s);
    QCOMPARE(rig.page(), 1);
}

void tst_connector::softwareDownload()
{
    FakeGateway gateway;
    gateway.manifest = {{kVersionPath, u"2.0.0"_s}, {u"Software/Win/URL"_s, u"https://host/a.zip"_s}};
    Rig rig(&gateway);
    rig.show();
    rig.press(u"AutoCheckOFF"_s);
    QCOMPARE(QSettings().value("AutoCheckForUpdates").toBool(), false);
    rig.press(u"AutoCheckON"_s);
    QCOMPARE(QSettings().value("AutoCheckForUpdates").toBool(), true);
    QCOMPARE(rig.page(), 6);
    rig.press(u"UpdateSoftware"_s);
    QCOMPARE(rig.page(), 8);
    QCOMPARE(gateway.calls.last(), u"software https://host/a.zip"_s);
    QCOMPARE(rig.text(u"Page8Label1"_s), QString());
    const auto tell = [&](const QString& attribute, const QString& value) { emit gateway.softwareChanged(attribute, value); };
    tell(u"DownloadState"_s, u"Start"_s);
    QCOMPARE(rig.text(u"Page8Label1"_s), u"Downloading  0%"_s);
    tell(u"DownloadCompleted"_s, u"1.0 KB"_s);
    QCOMPARE(rig.text(u"Page8Label2"_s), u"1.0 KB / 0B  ( 0B/s )"_s);
    tell(u"DownloadFileSize"_s, u"4.0 KB"_s);
    tell(u"DownloadSpeed"_s, u"2.0 KB/s"_s);
    AppSettingsSubject::instance().changeLanguage(u"Chinese"_s);
    tell(u"DownloadProgress"_s, u"25"_s);
    tell(u"DownloadCompleted"_s, u"1.0 KB"_s);
    QCOMPARE(rig.text(u"Page8Label1"_s), u"下载中  25%"_s);
    QCOMPARE(rig.text(u"Page8Label2"_s), u"1.0 KB / 4.0 KB  ( 2.0 KB/s )"_s);
    QCOMPARE(rig.connector.findChild<QProgressBar*>()->value(), 25);
    tell(u"UpdateState"_s, u"Start"_s); // the program ends behind it
    QCOMPARE(rig.text(u"Page8Label1"_s), u"下载中  25%"_s);
    for (const QString& state : {u"DownloadState"_s, u"UpdateState"_s}) {
        QCOMPARE(rig.page(), 8);
        tell(state, u"Failed"_s);
        QCOMPARE(rig.page(), 9);
        rig.press(u"RetryDownloadSoftware"_s);
    }
    QCOMPARE(rig.page(), 8);
    QCOMPARE(gateway.calls.count(u"software https://host/a.zip"_s), 3);
}

void tst_connector::firmwareFlow()
{
    FakeGateway gateway;
    gateway.manifest = {{u"Device/R47/URL"_s, u"https://host/f.zip"_s}};
    Rig rig(&gateway);
    rig.showConsole();
    emit rig.window->attributeChanged(u"R47"_s, u"UpdateFirmware"_s, QString());
    QVERIFY(rig.connector.isVisible());
    QCOMPARE(rig.page(), 8);
    QCOMPARE(gateway.calls.mid(1), (QStringList{u"version "_s, u"firmware https://host/f.zip"_s}));
    QTRY_COMPARE(FakeWindow::alive, 0);
    emit gateway.firmwareChanged(u"DownloadState"_s, u"Failed"_s);
    QCOMPARE(rig.page(), 10);
    rig.press(u"RetryDownloadFirmware"_s);
    QCOMPARE(gateway.calls.last(), u"firmware https://host/f.zip"_s);
    emit gateway.firmwareChanged(u"UpdateState"_s, u"Start"_s);
    emit gateway.firmwareChanged(u"UpdateProgress"_s, u"99"_s);
    QCOMPARE(rig.text(u"Page8Label1"_s), u"Updating  99%"_s);
    emit gateway.firmwareChanged(u"UpdateState"_s, u"Success"_s);
    QCOMPARE(rig.text(u"Page8Label1"_s), u"Complete update"_s);
    QCOMPARE(rig.page(), 8);
    QTRY_COMPARE(rig.page(), 12);
    rig.press(u"Cancel"_s);
    QCOMPARE(rig.page(), 1);
    emit rig.window->attributeChanged(u"R47"_s, u"UpdateFirmware"_s, u"/gig/R47_FW.bin"_s);
    QCOMPARE(gateway.calls.last(), u"file /gig/R47_FW.bin"_s);
    emit gateway.firmwareChanged(u"UpdateState"_s, u"Failed"_s);
    QCOMPARE(rig.page(), 11);
}

void tst_connector::updatesWithoutHost()
{
    const std::tuple<QString, QString, int> updates[] = {
        {u"UpdateSoftware"_s, {}, 9}, {u"UpdateFirmware"_s, {}, 10}, {u"UpdateFirmware"_s, u"/gig/R47_FW.bin"_s, 11}};
    for (const auto& [attribute, value, page] : updates) {
        Rig rig;
        rig.showConsole();
        emit rig.window->attributeChanged(u"R47"_s, attribute, value);
        QCOMPARE(rig.page(), page);
        QVERIFY(rig.connector.isVisible());
        rig.press(u"Cancel"_s);
        QCOMPARE(rig.page(), 1);
    }
}

void tst_connector::closingHidesAndQuitEnds()
{
    mDriver->devices = {u"R47"_s};
    FakeGateway gateway;
    Rig rig(&gateway);
    rig.connector.done(1);
    // Asked for inside the fetch, when there is no loop yet that could end.
    gateway.whileWaiting = [&] {
        rig.connector.done(1);
        QVERIFY(rig.connector.isVisible());
        QVERIFY(QTest::qWaitForWindowActive(&rig.connector));
        QTest::keyClick(&rig.connector, Qt::Key_Q, Qt::ControlModifier);
    };
    rig.show();
    QCOMPARE(FakeWindow::alive, 0);
    QTimer::singleShot(2000, qApp, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
}

QTEST_MAIN(tst_connector)
#include "tst_connector.moc"
