#pragma once
// A function table of a driver whose devices, answers and failures the test decides.

#include "device/TUsbAudioApiDll.h"

#include <QList>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

namespace faketable
{

using namespace Qt::StringLiterals;

struct Driver {
    QStringList devices;
    QSet<QString> failing; // functions that fail
    QList<TUsbAudioHandle> open;
    TUsbAudioHandle lastHandle = 0;
    QStringList calls; // those that change something
    std::uint32_t rate = 48000;
    std::uint32_t bufferSize = 256;
    std::uint32_t flags = 0;
    std::uint32_t listed = 3; // supported sizes
    std::atomic<std::uint32_t> dfuState = 2;
    std::atomic<std::uint32_t> dfuDone = 0;
    std::atomic<std::uint32_t> dfuTotal = 1000;
    std::atomic<bool> inCall = false;
    bool overlapped = false;
    std::uint32_t minor = 13; // of the version of its interface
    int looks = 0;            // at the list of devices
    int rateReads = 0;        // by the monitoring
};
inline Driver* driver = nullptr;

/// The status of a call that must not meet another one; a watch over that.
struct Status {
    explicit Status(const char* function) : fails(driver->failing.contains(QLatin1String(function)))
    {
        driver->overlapped = driver->inCall.exchange(true) || driver->overlapped;
        std::this_thread::yield(); // gives another call the time to come
    }
    ~Status() { driver->inCall = false; }
    TUsbAudioStatus operator()() const { return fails ? 1 : 0; }
    bool fails;
};

/// The download calls may run beside the others.
inline TUsbAudioStatus downloadStatus(const char* function)
{
    return driver->failing.contains(QLatin1String(function)) ? 1 : 0;
}

struct FakeDll : TUsbAudioApiDll {
    int load() override { return 0; }
    FakeDll()
    {
        setDevices();
        setStream();
        setDownload();
    }
    void setDevices()
    {
        TUSBAUDIO_GetApiVersion = [] { return 5u << 16 | driver->minor; };
        TUSBAUDIO_CheckApiVersion = [](std::uint32_t major, std::uint32_t minor) {
            return std::int32_t{major == 5 && minor == driver->minor};
        };
        TUSBAUDIO_EnumerateDevices = [] {
            ++driver->looks;
            return Status("EnumerateDevices")();
        };
        TUSBAUDIO_GetDeviceCount = [] { return static_cast<std::uint32_t>(driver->devices.size()); };
        TUSBAUDIO_OpenDeviceByIndex = [](std::uint32_t index, TUsbAudioHandle* handle) {
            const Status status("OpenDeviceByIndex");
            if (status.fails || driver->devices[index].isEmpty()) {
                return TUsbAudioStatus{1};
            }
            *handle = ++driver->lastHandle << 8 | index;
            driver->open += *handle;
            return status();
        };
        TUSBAUDIO_CloseDevice = [](TUsbAudioHandle handle) {
            const Status status("CloseDevice");
            return driver->open.removeAll(handle) == 1 ? status() : 1;
        };
        TUSBAUDIO_GetDeviceProperties = [](TUsbAudioHandle handle, TUsbAudioDeviceProperties* properties) {
            const Status status("GetDeviceProperties");
            const QString name = driver->devices[handle & 0xFF];
            std::copy_n(reinterpret_cast<const char16_t*>(name.utf16()), std::min<qsizetype>(name.size(), 128),
                        properties->productString); // as long as can be: without an end
            return properties->size == sizeof(*properties) ? status() : 1;
        };
        TUSBAUDIO_SetPreferredASIODevice = [](TUsbAudioHandle handle, std::uint32_t) {
            driver->calls += u"preferred %1"_s.arg(handle & 0xFF);
            return Status("SetPreferredASIODevice")();
        };
    }
    void setStream()
    {
        TUSBAUDIO_GetSupportedSampleRates = [](TUsbAudioHandle, std::uint32_t, std::uint32_t* rates, std::uint32_t* count) {
            rates[0] = 44100;
            rates[1] = 48000;
            *count = 2;
            return Status("GetSupportedSampleRates")();
        };
        TUSBAUDIO_GetCurrentSampleRate = [](TUsbAudioHandle, std::uint32_t* rate) {
            ++driver->rateReads;
            *rate = driver->rate;
            return Status("GetCurrentSampleRate")();
        };
        TUSBAUDIO_SetSampleRate = [](TUsbAudioHandle, std::uint32_t rate) {
            driver->calls += u"rate %1"_s.arg(rate);
            return Status("SetSampleRate")();
        };
        TUSBAUDIO_GetASIOInstanceDetails = [](std::uint32_t, TUsbAudioAsioInstanceDetails* details) {
            details->instance = 77;
            return Status("GetASIOInstanceDetails")();
        };
        TUSBAUDIO_GetASIOInstanceInfo = [](std::uint32_t instance, TUsbAudioAsioInstanceInfo* info) {
            info->bufferSize = driver->bufferSize;
            info->flags = driver->flags;
            info->supportedCount = driver->listed;
            std::copy_n(std::array{64u, 128u, 256u}.data(), 3, info->supportedSizes);
            return instance == 77 ? Status("GetASIOInstanceInfo")() : 1;
        };
        TUSBAUDIO_SetASIOBufferPreferredSize = [](std::uint32_t instance, std::uint32_t current, std::uint32_t size,
                                                  std::uint32_t flags) {
            driver->calls += u"buffer %1 %2 %3 %4"_s.arg(instance).arg(current).arg(size).arg(flags);
            return Status("SetASIOBufferPreferredSize")();
        };
    }
    void setDownload()
    {
        TUSBAUDIO_LoadFirmwareImageFromFile = [](const char16_t* path, std::uint32_t index) {
            driver->calls += u"load %1 %2"_s.arg(QString::fromUtf16(path)).arg(index);
            return downloadStatus("LoadFirmwareImageFromFile");
        };
        TUSBAUDIO_GetFirmwareImageSize = [](std::uint32_t* bytes, std::uint32_t) {
            *bytes = 1000;
            return downloadStatus("GetFirmwareImageSize");
        };
        TUSBAUDIO_StartDfuDownload = [](std::uint32_t index, std::uint32_t, std::uint32_t) {
            driver->calls += u"start %1"_s.arg(index);
            return downloadStatus("StartDfuDownload");
        };
        TUSBAUDIO_UnloadFirmwareImage = [] {
            driver->calls += u"unload"_s;
            return TUSBAUDIO_SUCCESS;
        };
        TUSBAUDIO_EndDfuProc = [] { return downloadStatus("EndDfuProc"); };
        TUSBAUDIO_GetDfuStatus = [](std::uint32_t* state, std::uint32_t* done, std::uint32_t* total, std::uint32_t*) {
            *state = driver->dfuState;
            *done = driver->dfuDone;
            *total = driver->dfuTotal;
            return downloadStatus("GetDfuStatus");
        };
    }
};

} // namespace faketable
