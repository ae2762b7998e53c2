// From the first window to the end of an update: the connection window, the updates and a server, together.

#include "Recorder.h"
#include "UpdateServer.h"
#include "ZipWriter.h"
#include "connect/DeviceConnector.h"
#include "connect/DeviceConnectorViewBase.h"
#include "resources/Resources.h"
#include "tests/connect/Fakes.h"
#include "update/UpdateThread.h"
#include "update/Updates.h"

#include <QFile>
#include <QLabel>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

constexpr const char* kManifest = "/Jsons/UpdaterVantor.json";

} // namespace

class tst_update_flow : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void withoutHost();
    void unreachableThenOffered();
    void softwareFromOfferToSetup();
    void firmwareWithRetry();
    void quitWhileChecking();

private:
    void show(const UpdateSource& source);
    UpdateSource sourceOf(const UpdateServer& server) const;
    void offer(UpdateServer& server);
    int page() const { return mConnector->findChild<DeviceConnectorViewBase*>()->currentPage(); }
    QString text(const char* label) const { return mConnector->findChild<QLabel*>(QLatin1StringView(label))->text(); }
    void press(const QString& value) { mConnector->in_widgetConnectView_attributeChanged({}, u"Update"_s, value); }

    faketable::Driver mDriver;
    QTemporaryDir mTemp;
    std::unique_ptr<Updates> mUpdates;
    std::unique_ptr<DeviceConnector> mConnector;
};

void tst_update_flow::initTestCase()
{
    initResources();
    UpdateServer::trustAuthority();
    qputenv("TMPDIR", mTemp.path().toLocal8Bit());
    qputenv("SETUP_MARK", mTemp.filePath(u"mark"_s).toLocal8Bit());
}

void tst_update_flow::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!(Content-Length|bytesTotal) not available)"_s));
    mConnector.reset();
    mUpdates.reset();
    installFakes(mDriver);
    QSettings().clear();
    QSettings().setValue("AutoCheckForUpdates", true);
    QSettings().setValue("Language", u"English"_s);
    QSettings().setValue("ScaleFactor", 1);
}

void tst_update_flow::show(const UpdateSource& source)
{
    mUpdates = std::make_unique<Updates>(source);
    mConnector = std::make_unique<DeviceConnector>(mUpdates.get());
    mConnector->setTiming({5, 200, 20});
    mConnector->showSeries(u"Vantor"_s, {{u"R47"_s, {u"0x152A"_s, u"0x875C"_s}}});
}

UpdateSource tst_update_flow::sourceOf(const UpdateServer& server) const
{
    UpdateSource source;
    source.manifest = server.url(QLatin1StringView(kManifest));
    source.fetchSilenceMs = source.downloadSilenceMs = 400;
    return source;
}

void tst_update_flow::offer(UpdateServer& server)
{
    const QByteArray base = server.url({}).toString().toLatin1();
    server.answers.insert(QLatin1StringView(kManifest),
                          Answer::of(R"({"Software": {"Win": {"Version": "1.3.0", "URL": ")" + base + R"(/quillon.zip"}}, )" +
                                     R"("Device": {"R47": {"Version": "1.1.0", "URL": ")" + base + R"(/R47.zip"}}})"));
}

void tst_update_flow::withoutHost()
{
    show({});
    QCOMPARE(page(), 0);
    emit mConnector->in_mainWindow_attributeChanged(u"R47"_s, u"UpdateFirmware"_s, u"/nonexistent/R47.bin"_s);
    QTRY_COMPARE(page(), 11);
    expect(u"Url is empty"_s);
    emit mConnector->in_mainWindow_attributeChanged(u"R47"_s, u"UpdateFirmware"_s, {});
    QTRY_COMPARE(page(), 10);
}

void tst_update_flow::unreachableThenOffered()
{
    UpdateServer server(u"good"_s);
    expect(u"Error occurred during get json: Error transferring"_s);
    show(sourceOf(server));
    QCOMPARE(page(), 7);
    offer(server);
    press(u"RetryFetch"_s);
    QCOMPARE(page(), 5);
    QTRY_COMPARE(page(), 6);
    QCOMPARE(text("Page6Label2"), u"Current version : V1.2.0"_s);
    press(u"Cancel"_s);
    QCOMPARE(page(), 0);
}

void tst_update_flow::softwareFromOfferToSetup()
{
    UpdateServer server(u"good"_s);
    offer(server);
    show(sourceOf(server));
    QCOMPARE(page(), 6);
    expect(u"Error occurred during download file: Error transferring"_s);
    press(u"UpdateSoftware"_s);
    QCOMPARE(page(), 8);
    QTRY_COMPARE(page(), 9);
    // The page of that error is still in memory: one retry more than the server needs.
    const QByteArray setup = "#!/bin/sh\necho started > \"$SETUP_MARK\"\n";
    server.answers.insert(u"/quillon.zip"_s, Answer::of(ZipWriter::archive({{"QuillonSetup.run", setup}})));
    expect(u"Error occurred during download file: not of the announced size"_s);
    press(u"RetryDownloadSoftware"_s);
    QTRY_COMPARE(page(), 9);
    press(u"RetryDownloadSoftware"_s);
    QTimer::singleShot(10000, qApp, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
    QTRY_COMPARE(contentOf(mTemp.filePath(u"mark"_s)), QByteArray("started\n"));
}

void tst_update_flow::firmwareWithRetry()
{
    UpdateServer server(u"good"_s);
    offer(server);
    mDriver.devices = {u"R47"_s};
    mDriver.dfuDone = 0;
    QVERIFY(USBAudioAPI::instance().setDeviceToActiveByName(u"R47"_s));
    show(sourceOf(server));
    server.answers.insert(u"/R47.zip"_s, {.headers = {"Content-Length: 900"}, .pieces = {}, .isSized = false, .stalls = true});
    expect(u"Error occurred during download file: Request timed out"_s);
    emit mConnector->in_mainWindow_attributeChanged(u"R47"_s, u"UpdateFirmware"_s, {});
    QTRY_COMPARE(page(), 10);
    // The device takes it, and loses it on the way.
    server.answers.insert(u"/R47.zip"_s, Answer::of(ZipWriter::archive({{"R47.bin", QByteArray(2000, 'f')}})));
    press(u"RetryDownloadFirmware"_s);
    QCOMPARE(page(), 8);
    QTRY_COMPARE(text("Page8Label1"), u"Updating  1%"_s);
    mDriver.dfuState = TUSBAUDIO_DFU_FAILED;
    expect(u"USBAudioAPI::getDFUPercentageComplete //dfu failed"_s);
    QTRY_COMPARE(page(), 11);
    mDriver.dfuState = 2;
    mDriver.dfuDone = mDriver.dfuTotal.load();
    press(u"RetryDownloadFirmware"_s);
    QTRY_COMPARE(page(), 12);
}

void tst_update_flow::quitWhileChecking()
{
    UpdateServer server(u"good"_s);
    server.answers.insert(QLatin1StringView(kManifest), {.headers = {}, .pieces = {}, .isSized = false, .stalls = true});
    UpdateSource source = sourceOf(server);
    source.fetchSilenceMs = 20000;
    QElapsedTimer timer;
    timer.start();
    QTimer::singleShot(200, this, [this] {
        QCOMPARE(page(), 5);
        QTest::keyClick(mConnector.get(), Qt::Key_Q, Qt::ControlModifier);
    });
    show(source);
    QTimer::singleShot(5000, qApp, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
    QVERIFY(timer.elapsed() < 3000);
    UpdateThread::stop(); // before the server, which would end the answer that nobody waits for
}

QTEST_MAIN(tst_update_flow)
#include "tst_update_flow.moc"
