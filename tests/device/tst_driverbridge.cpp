// The bridge to the driver library: finding and loading it, and its operations on a driver whose answers the test decides.

#include "FakeTable.h"
#include "device/USBAudioAPI.h"
#include "device/USBAudioManager.h"

#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <thread>

using namespace Qt::StringLiterals;
using namespace faketable;

namespace
{

USBAudioAPI& api()
{
    return USBAudioAPI::instance();
}

void expectWarning(const char* text)
{
    QTest::ignoreMessage(QtWarningMsg, (QByteArray("USBAudioAPI::") + text).constData());
}

void checkNoInit(const QByteArray& version)
{
    QTest::ignoreMessage(QtInfoMsg, ("USBAudioAPI::Init //usb audio version API[" + version + ']').constData());
    expectWarning("Init //failed to check api version");
    QVERIFY(!api().Init());
    QCOMPARE(api().apiVersion(), 0u);
}

} // namespace

class TestDriverBridge : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void loading();
    void withoutLibraryAllFails();
    void silentDevicesAreLeftOut();
    void handlesNeverLeak();
    void duplicateNames();
    void valuesAreCheckedBeforeTheyAreSet();
    void failuresAreNamed();
    void download();
    void monitoring();
    void percentage();
    void downloadBesidePolling();

private:
    void registerLibrary(const QString& path);

    QTemporaryDir mConfig;
    std::unique_ptr<Driver> mDriver;
};

void TestDriverBridge::init()
{
    QTest::failOnWarning(QRegularExpression(u"."_s));
    qputenv("XDG_CONFIG_HOME", mConfig.path().toLocal8Bit());
    qputenv("XDG_CONFIG_DIRS", (mConfig.path() + u"/system"_s).toLocal8Bit());
    mDriver = std::make_unique<Driver>();
    mDriver->devices = {u"Other"_s, u"R47"_s};
    driver = mDriver.get();
    USBAudioAPI::setLibrary(std::make_unique<FakeDll>());
    QTest::ignoreMessage(QtInfoMsg, "USBAudioAPI::Init //usb audio version API[5.13]");
    QVERIFY(api().Init());
}

void TestDriverBridge::cleanup()
{
    QVERIFY2(!mDriver->overlapped, "two calls of the library at once");
    USBAudioAPI::setLibrary(nullptr);
}

void TestDriverBridge::registerLibrary(const QString& path)
{
    QSettings settings(mConfig.filePath(u"TUSBAUDIO.conf"_s), QSettings::IniFormat);
    settings.clear();
    if (!path.isEmpty()) {
        settings.setValue(u"CLSID/{E97E1508-2A66-4DF8-B7A7-32D6E5FCBA46}/InprocServer32"_s, path);
    }
}

void TestDriverBridge::loading()
{
    const QString here = QString::fromLatin1(FAKE_DRIVER_FOLDER);
    for (const auto& [path, status] : {std::pair(QString(), 1),
                                       {u"libfake_driver.so"_s, 1},
                                       {here + u"/libno_driver.so"_s, 2},
                                       {here, 2},
                                       {QString::fromLatin1(__FILE__), 3},
                                       {here + u"/libfake_driver_incomplete.so"_s, 4}}) {
        registerLibrary(path);
        TUsbAudioApiDll dll;
        QCOMPARE(dll.load(), status);
        QVERIFY(dll.TUSBAUDIO_GetApiVersion == nullptr);
        USBAudioAPI::setLibrary(nullptr);
        checkNoInit("0.00");
    }
    registerLibrary(here + u"/libfake_driver.so"_s);
    USBAudioAPI::setLibrary(nullptr);
    QTest::ignoreMessage(QtInfoMsg, "USBAudioAPI::Init //usb audio version API[5.13]");
    QVERIFY(api().Init());
    QCOMPARE(api().getNameOfAllDevice(), QStringList());
    QVERIFY(api().setDFUTerminate());
    mDriver->minor = 12; // too old
    USBAudioAPI::setLibrary(std::make_unique<FakeDll>());
    checkNoInit("5.12");
}

void TestDriverBridge::withoutLibraryAllFails()
{
    USBAudioAPI::setLibrary(nullptr);
    expectWarning("getNumberOfAvailableDevice //failed to enumerate devices");
    QCOMPARE(api().getNameOfAllDevice(), QStringList());
    expectWarning("getNumberOfAvailableDevice //failed to enumerate devices"); // to look for the name
    expectWarning("setDeviceToActiveByName //invalid device name");
    QVERIFY(!api().setDeviceToActiveByName(u"R47"_s));
    expectWarning("getSampleRateOfActiveDevice //failed to get current sample rate");
    QCOMPARE(api().getSampleRateOfActiveDevice(), 0);
    expectWarning("setDFUStart //no device connected");
    QVERIFY(!api().setDFUStart(u"/a.bin"_s));
    expectWarning("getBufferSizeOfActiveDeviceSupported //failed to get asio instance details");
    QCOMPARE(api().getBufferSizeOfActiveDeviceSupported(), QList<int>());
    expectWarning("getDFUPercentageComplete //failed to get dfu status");
    QCOMPARE(api().getDFUPercentageComplete(), 0);
    expectWarning("setDFUTerminate //failed to end dfu proc");
    QVERIFY(!api().setDFUTerminate());
}

void TestDriverBridge::silentDevicesAreLeftOut()
{
    mDriver->devices = {u"A"_s, QString(), u"R47"_s};
    expectWarning("getNameOfAllDevice //failed to open device by index");
    QCOMPARE(api().getNameOfAllDevice(), QStringList({u"A"_s, u"R47"_s}));
    // The device behind the silent one is still found under its own index.
    expectWarning("getPropertiesOfAllDevice //failed to open device by index");
    QVERIFY(api().setDeviceToActiveByName(u"R47"_s));
    QCOMPARE(mDriver->calls, QStringList(u"preferred 2"_s));
    mDriver->failing += u"GetDeviceProperties"_s;
    mDriver->devices = {u"A"_s};
    expectWarning("getPropertiesOfAllDevice //failed to get device properties");
    QCOMPARE(api().getPropertiesOfAllDevice().size(), 0);
    QCOMPARE(mDriver->open.size(), 1);
}

void TestDriverBridge::handlesNeverLeak()
{
    QVERIFY(api().setDeviceToActiveByName(u"R47"_s));
    QVERIFY(api().setDeviceToActiveByName(u"R47"_s));
    const TUsbAudioHandle before = mDriver->open.value(0);
    for (int i = 0; i < 10; ++i) {
        QVERIFY(api().isActiveDeviceOnline());
        QCOMPARE(mDriver->open.size(), 1);
    }
    QVERIFY2(mDriver->open.value(0) != before, "each look opens the device anew");
    mDriver->devices = {u"R47"_s, u"R47"_s};
    api().getNameOfAllDevice();
    QCOMPARE(mDriver->open.size(), 1);
    mDriver->devices = {u"Other"_s};
    QVERIFY(!api().isActiveDeviceOnline());
}

void TestDriverBridge::duplicateNames()
{
    QStringList names{u"left over"_s};
    QVERIFY(!api().getDuplicateDeviceNames(names));
    QVERIFY(names.isEmpty());
    const QString longest(128, u'x'); // fills its record to the end
    mDriver->devices = {u"R47"_s, longest, u"R47"_s, longest + u'y', u"R47"_s, u"C"_s};
    QVERIFY(api().getDuplicateDeviceNames(names));
    QCOMPARE(names, QStringList({u"R47"_s, longest}));
}

void TestDriverBridge::valuesAreCheckedBeforeTheyAreSet()
{
    QVERIFY(api().setDeviceToActiveByName(u"R47"_s));
    mDriver->calls.clear();
    QVERIFY(!api().setSampleRateOfActiveDevice(96000));
    QVERIFY(!api().setBufferSizeOfActiveDevice(100));
    QCOMPARE(mDriver->calls, QStringList());
    mDriver->flags = 1u << 16 | 3;
    QVERIFY(api().setSampleRateOfActiveDevice(44100));
    QVERIFY(api().setBufferSizeOfActiveDevice(64));
    QVERIFY(api().setSafeModeOfActiveDevice(true));
    QVERIFY(api().setSafeModeOfActiveDevice(false));
    QCOMPARE(mDriver->calls,
             QStringList({u"rate 44100"_s, u"buffer 77 256 64 65536"_s, u"buffer 77 256 256 65536"_s, u"buffer 77 256 256 0"_s}));
    mDriver->listed = 5000; // more than its record holds
    QCOMPARE(api().getBufferSizeOfActiveDeviceSupported().size(), 32);
}

void TestDriverBridge::failuresAreNamed()
{
    QVERIFY(api().setDeviceToActiveByName(u"R47"_s));
    mDriver->failing = {u"SetSampleRate"_s, u"SetASIOBufferPreferredSize"_s};
    expectWarning("setSampleRateOfActiveDevice //failed to set sample rate");
    QVERIFY(!api().setSampleRateOfActiveDevice(44100));
    expectWarning("setSafeModeOfActiveDevice //failed to set asio buffer preferred size");
    QVERIFY(!api().setSafeModeOfActiveDevice(true));
    mDriver->failing = {u"SetPreferredASIODevice"_s};
    expectWarning("setDeviceToActiveByName //failed to set preferred asio device");
    QVERIFY2(api().setDeviceToActiveByName(u"R47"_s), "named, but not fatal");
    mDriver->failing = {u"GetASIOInstanceInfo"_s, u"GetSupportedSampleRates"_s};
    expectWarning("getSafeModeOfActiveDevice //failed to get asio instance info");
    QVERIFY(!api().getSafeModeOfActiveDevice());
    expectWarning("getSampleRateOfActiveDeviceSupported //failed to get supported sample rates");
    QVERIFY(!api().setSampleRateOfActiveDevice(44100));
}

void TestDriverBridge::download()
{
    QVERIFY(api().setDeviceToActiveByName(u"R47"_s));
    mDriver->calls.clear();
    QVERIFY(api().setDFUStart(u"/home/x/Gerät.bin"_s));
    QCOMPARE(mDriver->calls, QStringList({u"load /home/x/Gerät.bin 1"_s, u"start 1"_s}));
    QVERIFY(api().setDFUTerminate());
    QCOMPARE(mDriver->calls.constLast(), u"unload"_s);
    mDriver->devices = {u"Other"_s};
    QVERIFY2(!api().setDFUStart(u"/a.bin"_s), "an absent device fails without a log line");
    mDriver->devices = {u"R47"_s};
    mDriver->calls.clear();
    mDriver->failing = {u"LoadFirmwareImageFromFile"_s};
    expectWarning("setDFUStart //failed to load firmware image from file");
    QVERIFY(!api().setDFUStart(u"a"_s));
    mDriver->failing = {u"GetFirmwareImageSize"_s};
    expectWarning("setDFUStart //failed to get firmware image size");
    QVERIFY(!api().setDFUStart(u"b"_s));
    mDriver->failing = {u"StartDfuDownload"_s};
    expectWarning("setDFUStart //failed to start dfu download");
    QVERIFY(!api().setDFUStart(u"c"_s));
    // An image that was not loaded is not unloaded.
    QCOMPARE(mDriver->calls, QStringList({u"load a 0"_s, u"load b 0"_s, u"unload"_s, u"load c 0"_s, u"start 0"_s, u"unload"_s}));
}

void TestDriverBridge::percentage()
{
    const auto at = [this](std::uint32_t done, std::uint32_t total) {
        mDriver->dfuDone = done;
        mDriver->dfuTotal = total;
        return api().getDFUPercentageComplete();
    };
    QCOMPARE(at(0, 1000), 1); // 0 is a failure
    QCOMPARE(at(29, 1000), 2);
    QCOMPARE(at(3000, 1000), 100);
    QCOMPARE(at(4000000000u, 4294967295u), 93);
    expectWarning("getDFUPercentageComplete //dfu status totalBytes is 0");
    QCOMPARE(at(0, 0), 0);
    mDriver->dfuState = 6;
    expectWarning("getDFUPercentageComplete //dfu failed");
    QCOMPARE(at(10, 1000), 0);
}

void TestDriverBridge::monitoring()
{
    QVERIFY(api().setDeviceToActiveByName(u"R47"_s));
    USBAudioManager& manager = USBAudioManager::instance();
    QStringList events;
    const auto connection =
        connect(&manager, &USBAudioManager::attributeChanged, this,
                [&events](const QString& attribute, const QString& value) { events += attribute + u'=' + value; });
    const auto taken = [&events] { return std::exchange(events, {}); };
    manager.startMonitoring();
    QCOMPARE(taken(), QStringList({u"SampleRate=48000"_s, u"BufferSize=256"_s, u"SafeMode=0"_s}));
    mDriver->flags = 1u << 16;
    mDriver->bufferSize = 64;
    QTRY_COMPARE(events.size(), 2);
    QCOMPARE(taken(), QStringList({u"BufferSize=64"_s, u"SafeMode=1"_s}));
    manager.stopMonitoring();
    manager.startMonitoring();
    QCOMPARE(taken(), QStringList({u"SampleRate=48000"_s, u"SafeMode=1"_s}));
    manager.stopMonitoring();
    disconnect(connection);
}

void TestDriverBridge::downloadBesidePolling()
{
    QVERIFY(api().setDeviceToActiveByName(u"R47"_s));
    int started = 0;
    std::thread updater([&started] {
        for (int i = 0; i < 200; ++i) {
            started += api().setDFUStart(u"/a.bin"_s) ? 1 : 0;
            api().getDFUPercentageComplete();
        }
    });
    for (int i = 0; i < 200; ++i) {
        api().getSampleRateOfActiveDevice();
        api().getBufferSizeOfActiveDevice();
        api().isActiveDeviceOnline();
    }
    updater.join();
    QCOMPARE(started, 200);
    QCOMPARE(mDriver->open.size(), 1);
}

QTEST_GUILESS_MAIN(TestDriverBridge)
#include "tst_driverbridge.moc"
