// The driver library as a program finds it: loaded by name, with a running r47d, without one, and with one that hangs.

#include "device/TUsbAudioApi.h"
#include "tests/virtual/RunningR47.h"

#include <QElapsedTimer>
#include <QFile>
#include <csignal>
#include <dlfcn.h>

class tst_VirtualDriver : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void absentDevice();
    void deviceList();
    void handlesEndWithTheDevice();
    void ratesAndBuffers();
    void safeMode();
    void changesFromOutside();
    void recordsOfAnotherSize();
    void hungDaemonIsGivenUp();
    void download();
    void downloadThatFails();
    void downloadThatIsRefused();

private:
    QList<std::uint32_t> bufferSizes();
    TUsbAudioHandle openFirst();

#define DECLARE(name, type) type m##name = nullptr;
    TUSBAUDIO_FUNCTIONS(DECLARE)
#undef DECLARE
};

void tst_VirtualDriver::initTestCase()
{
    void* library = dlopen(R47DRIVER, RTLD_NOW | RTLD_LOCAL);
    QVERIFY2(library, dlerror());
#define RESOLVE(name, type)                                                                                                        \
    m##name = reinterpret_cast<type>(dlsym(library, "TUSBAUDIO_" #name));                                                          \
    QVERIFY2(m##name, #name);
    TUSBAUDIO_FUNCTIONS(RESOLVE)
#undef RESOLVE
    QCOMPARE(mGetApiVersion(), 5u << 16 | 13u);
    QVERIFY(mCheckApiVersion(5, 13) && mCheckApiVersion(5, 12));
    QVERIFY(!mCheckApiVersion(5, 14) && !mCheckApiVersion(6, 0));
}

TUsbAudioHandle tst_VirtualDriver::openFirst()
{
    TUsbAudioHandle handle = 0;
    mEnumerateDevices();
    return mOpenDeviceByIndex(0, &handle) == TUSBAUDIO_SUCCESS ? handle : 0;
}

QList<std::uint32_t> tst_VirtualDriver::bufferSizes()
{
    TUsbAudioAsioInstanceDetails details{.size = sizeof details, .instance = 0};
    TUsbAudioAsioInstanceInfo info{};
    info.size = sizeof info;
    if (mGetASIOInstanceDetails(0, &details) || mGetASIOInstanceInfo(details.instance, &info))
        return {};
    return {info.supportedSizes, info.supportedSizes + info.supportedCount};
}

void tst_VirtualDriver::absentDevice()
{
    qputenv("R47_DIR", "/nonexistent");
    QCOMPARE(mEnumerateDevices(), TUSBAUDIO_SUCCESS);
    QCOMPARE(mGetDeviceCount(), 0u);
    TUsbAudioHandle handle = 0;
    QVERIFY(mOpenDeviceByIndex(0, &handle) != TUSBAUDIO_SUCCESS);
    std::uint32_t rate = 0;
    QVERIFY(mGetCurrentSampleRate(1, &rate) != TUSBAUDIO_SUCCESS);
    QVERIFY(bufferSizes().isEmpty());
}

void tst_VirtualDriver::deviceList()
{
    RunningR47 device;
    for (const unsigned count : {1u, 2u, 0u}) {
        device.ask(QString("plug %1").arg(count));
        QCOMPARE(mEnumerateDevices(), TUSBAUDIO_SUCCESS);
        QCOMPARE(mGetDeviceCount(), count);
        for (unsigned i = 0; i < count; ++i) {
            TUsbAudioHandle handle = 0;
            QCOMPARE(mOpenDeviceByIndex(i, &handle), TUSBAUDIO_SUCCESS);
            QVERIFY(handle);
            TUsbAudioDeviceProperties properties{};
            properties.size = sizeof properties;
            QCOMPARE(mGetDeviceProperties(handle, &properties), TUSBAUDIO_SUCCESS);
            QCOMPARE(QString::fromUtf16(properties.productString), "R47");
            QCOMPARE(properties.usbVendorId, 0x152A);
            QCOMPARE(properties.usbProductId, 0x875C);
            QCOMPARE(mSetPreferredASIODevice(handle, 0), TUSBAUDIO_SUCCESS);
            QCOMPARE(mCloseDevice(handle), TUSBAUDIO_SUCCESS);
        }
        TUsbAudioHandle none = 0;
        QVERIFY(mOpenDeviceByIndex(count, &none) != TUSBAUDIO_SUCCESS);
    }
    device.ask("plug");
    device.ask("hid off"); // the driver still lists it
    mEnumerateDevices();
    QCOMPARE(mGetDeviceCount(), 1u);
}

void tst_VirtualDriver::handlesEndWithTheDevice()
{
    RunningR47 device;
    const TUsbAudioHandle handle = openFirst();
    std::uint32_t rate = 0;
    QCOMPARE(mGetCurrentSampleRate(handle, &rate), TUSBAUDIO_SUCCESS);
    device.ask("unplug");
    QVERIFY(mGetCurrentSampleRate(handle, &rate) != TUSBAUDIO_SUCCESS);
    device.ask("plug");
    QVERIFY(mGetCurrentSampleRate(handle, &rate) != TUSBAUDIO_SUCCESS);
    QCOMPARE(mGetCurrentSampleRate(openFirst(), &rate), TUSBAUDIO_SUCCESS);
}

void tst_VirtualDriver::ratesAndBuffers()
{
    RunningR47 device;
    const TUsbAudioHandle handle = openFirst();
    std::uint32_t rates[16] = {};
    std::uint32_t count = 0;
    QCOMPARE(mGetSupportedSampleRates(handle, 3, rates, &count), TUSBAUDIO_SUCCESS);
    QCOMPARE(count, 3u);
    QCOMPARE(rates[3], 0u);
    QCOMPARE(mGetSupportedSampleRates(handle, 16, rates, &count), TUSBAUDIO_SUCCESS);
    QCOMPARE(rates[0], 44100u);
    QCOMPARE(rates[count - 1], 192000u);
    const auto slow = bufferSizes();
    QCOMPARE(mSetSampleRate(handle, 96000), TUSBAUDIO_SUCCESS);
    std::uint32_t rate = 0;
    QCOMPARE(mGetCurrentSampleRate(handle, &rate), TUSBAUDIO_SUCCESS);
    QCOMPARE(rate, 96000u);
    const auto fast = bufferSizes();
    QVERIFY(!slow.isEmpty() && slow != fast);
    QCOMPARE(fast.first(), slow.first() * 2);
    QVERIFY(mSetSampleRate(handle, 12345) != TUSBAUDIO_SUCCESS);

    TUsbAudioAsioInstanceDetails details{.size = sizeof details, .instance = 0};
    TUsbAudioAsioInstanceInfo info{};
    info.size = sizeof info;
    QCOMPARE(mGetASIOInstanceDetails(0, &details), TUSBAUDIO_SUCCESS);
    QCOMPARE(mGetASIOInstanceInfo(details.instance, &info), TUSBAUDIO_SUCCESS);
    QVERIFY(fast.contains(info.bufferSize)); // the size went along with the rate
    QCOMPARE(mSetASIOBufferPreferredSize(details.instance, info.bufferSize, fast[2], info.flags), TUSBAUDIO_SUCCESS);
    QVERIFY(mSetASIOBufferPreferredSize(details.instance, info.bufferSize, slow.first(), info.flags) != TUSBAUDIO_SUCCESS);
    QCOMPARE(mGetASIOInstanceInfo(details.instance, &info), TUSBAUDIO_SUCCESS);
    QCOMPARE(info.bufferSize, fast[2]);
}

void tst_VirtualDriver::safeMode()
{
    RunningR47 device;
    TUsbAudioAsioInstanceDetails details{.size = sizeof details, .instance = 0};
    TUsbAudioAsioInstanceInfo info{};
    info.size = sizeof info;
    QCOMPARE(mGetASIOInstanceDetails(0, &details), TUSBAUDIO_SUCCESS);
    for (const std::uint32_t flags : {0u, TUSBAUDIO_ASIO_SAFE_MODE}) {
        QCOMPARE(mGetASIOInstanceInfo(details.instance, &info), TUSBAUDIO_SUCCESS);
        const std::uint32_t size = info.bufferSize;
        QCOMPARE(mSetASIOBufferPreferredSize(details.instance, size, size, flags), TUSBAUDIO_SUCCESS);
        QCOMPARE(mGetASIOInstanceInfo(details.instance, &info), TUSBAUDIO_SUCCESS);
        QCOMPARE(info.flags, flags);
        QCOMPARE(info.bufferSize, size);
    }
}

void tst_VirtualDriver::changesFromOutside()
{
    RunningR47 device;
    const TUsbAudioHandle handle = openFirst();
    device.ask("driver rate 192000");
    std::uint32_t rate = 0;
    QCOMPARE(mGetCurrentSampleRate(handle, &rate), TUSBAUDIO_SUCCESS);
    QCOMPARE(rate, 192000u);
    QVERIFY(!device.tell("driver buffer 33"));
}

void tst_VirtualDriver::recordsOfAnotherSize()
{
    RunningR47 device;
    TUsbAudioDeviceProperties properties{};
    QVERIFY(mGetDeviceProperties(openFirst(), &properties) != TUSBAUDIO_SUCCESS);
    TUsbAudioAsioInstanceDetails details{.size = sizeof details + 4, .instance = 0};
    QVERIFY(mGetASIOInstanceDetails(0, &details) != TUSBAUDIO_SUCCESS);
    QVERIFY(mGetSupportedSampleRates(openFirst(), 4, nullptr, nullptr) != TUSBAUDIO_SUCCESS);
    QVERIFY(mOpenDeviceByIndex(0, nullptr) != TUSBAUDIO_SUCCESS);
}

void tst_VirtualDriver::hungDaemonIsGivenUp()
{
    RunningR47 device;
    const TUsbAudioHandle handle = openFirst();
    const auto pid = device.pid();
    kill(pid, SIGSTOP);
    QElapsedTimer timer;
    timer.start();
    std::uint32_t rate = 0;
    const bool failed = mGetCurrentSampleRate(handle, &rate) != TUSBAUDIO_SUCCESS;
    const qint64 took = timer.elapsed();
    kill(pid, SIGCONT);
    QVERIFY(failed);
    QVERIFY2(took < 300, qPrintable(QString::number(took)));
    // The late answer of before is not taken for this one's.
    QTRY_COMPARE(mGetCurrentSampleRate(handle, &rate), TUSBAUDIO_SUCCESS);
    QCOMPARE(rate, 48000u);
}

void tst_VirtualDriver::download()
{
    RunningR47 device;
    QFile image(device.path("firmware.bin"));
    QVERIFY(image.open(QIODevice::WriteOnly));
    image.write(QByteArray(5000, 'f'));
    image.close();
    const std::u16string path = image.fileName().toStdU16String();
    openFirst();
    QVERIFY(mLoadFirmwareImageFromFile(u"/nonexistent.bin", 0) != TUSBAUDIO_SUCCESS);
    QVERIFY(mStartDfuDownload(0, 0, 0) != TUSBAUDIO_SUCCESS); // nothing loaded
    QCOMPARE(mLoadFirmwareImageFromFile(path.c_str(), 0), TUSBAUDIO_SUCCESS);
    std::uint32_t size = 0;
    QCOMPARE(mGetFirmwareImageSize(&size, 0), TUSBAUDIO_SUCCESS);
    QCOMPARE(size, 5000u);
    device.ask("dfu seconds 0.3");
    QCOMPARE(mStartDfuDownload(0, 0, 0), TUSBAUDIO_SUCCESS);
    QSet<std::uint32_t> steps;
    std::uint32_t state = 0, doneBytes = 0, total = 0, extra = 0, last = 0;
    QElapsedTimer timer;
    timer.start();
    while (doneBytes < 5000 && timer.elapsed() < 5000) {
        QCOMPARE(mGetDfuStatus(&state, &doneBytes, &total, &extra), TUSBAUDIO_SUCCESS);
        QVERIFY(doneBytes >= last && state != TUSBAUDIO_DFU_FAILED);
        QCOMPARE(total, 5000u);
        steps << doneBytes;
        last = doneBytes;
    }
    QVERIFY(steps.size() > 10);
    QVERIFY(timer.elapsed() >= 250);
    QCOMPARE(mEndDfuProc(), TUSBAUDIO_SUCCESS);
    QCOMPARE(mUnloadFirmwareImage(), TUSBAUDIO_SUCCESS);
    mEnumerateDevices();
    QCOMPARE(mGetDeviceCount(), 0u); // starts anew
    QTRY_VERIFY(openFirst());
}

void tst_VirtualDriver::downloadThatFails()
{
    RunningR47 device;
    openFirst();
    QCOMPARE(mLoadFirmwareImageFromFile(QStringLiteral(R47D).toStdU16String().c_str(), 0), TUSBAUDIO_SUCCESS);
    device.ask("dfu seconds 0.1");
    device.ask("dfu fail 50");
    QCOMPARE(mStartDfuDownload(0, 0, 0), TUSBAUDIO_SUCCESS);
    std::uint32_t state = 0, doneBytes = 0, total = 0, extra = 0;
    QTRY_VERIFY(mGetDfuStatus(&state, &doneBytes, &total, &extra) == TUSBAUDIO_SUCCESS && state == TUSBAUDIO_DFU_FAILED);
    QCOMPARE(doneBytes, total / 2);
    mEndDfuProc();
    mEnumerateDevices();
    QCOMPARE(mGetDeviceCount(), 1u); // it stays as it was
    device.ask("dfu fail off");
    QCOMPARE(mStartDfuDownload(0, 0, 0), TUSBAUDIO_SUCCESS);
    device.ask("unplug"); // in the middle of it
    QVERIFY(mGetDfuStatus(&state, &doneBytes, &total, &extra) != TUSBAUDIO_SUCCESS || state == TUSBAUDIO_DFU_FAILED);
    mEndDfuProc();
    mUnloadFirmwareImage();
}

void tst_VirtualDriver::downloadThatIsRefused()
{
    RunningR47 device;
    openFirst();
    QCOMPARE(mLoadFirmwareImageFromFile(QStringLiteral(R47D).toStdU16String().c_str(), 0), TUSBAUDIO_SUCCESS);
    device.ask("dfu refuse on");
    QVERIFY(mStartDfuDownload(0, 0, 0) != TUSBAUDIO_SUCCESS);
    device.ask("dfu refuse off");
    QCOMPARE(mStartDfuDownload(0, 0, 0), TUSBAUDIO_SUCCESS);
    QCOMPARE(mEndDfuProc(), TUSBAUDIO_SUCCESS);
    mUnloadFirmwareImage();
}

QTEST_GUILESS_MAIN(tst_VirtualDriver)
#include "tst_driver.moc"
