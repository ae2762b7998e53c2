// USBAudioAPI: firmware download. Called from the updater's thread; shares the device list and the active name with the GUI thread.

#include "device/DriverCall.h"
#include "device/USBAudioAPI.h"

#include <algorithm>

using namespace quillon;

struct USBAudioAPI::DfuStatus {
    std::uint32_t state = 0;
    std::uint32_t bytesDone = 0;
    std::uint32_t bytesTotal = 0;
};

bool USBAudioAPI::setDFUStart(const QString& path)
{
    const char* who = "setDFUStart";
    const QString name = activeName();
    if (name.isEmpty()) {
        warn(who, "no device connected");
        return false;
    }
    int index = -1;
    {
        const std::lock_guard lock(mLibraryMutex);
        index = indexOf(name);
    }
    if (index < 0) {
        return false;
    }
    const auto device = static_cast<std::uint32_t>(index);
    const auto* wide = reinterpret_cast<const char16_t*>(path.utf16());
    if (!succeeded(mDll->TUSBAUDIO_LoadFirmwareImageFromFile, wide, device)) {
        warn(who, "failed to load firmware image from file");
        return false;
    }
    std::uint32_t size = 0;
    if (!succeeded(mDll->TUSBAUDIO_GetFirmwareImageSize, &size, 0u)) {
        warn(who, "failed to get firmware image size");
    } else if (!succeeded(mDll->TUSBAUDIO_StartDfuDownload, device, 0u, 0u)) {
        warn(who, "failed to start dfu download");
    } else {
        return true;
    }
    succeeded(mDll->TUSBAUDIO_UnloadFirmwareImage);
    return false;
}

unsigned USBAudioAPI::getDFUBytesCurrent()
{
    DfuStatus status;
    return dfuStatus("getDFUBytesCurrent", status) ? status.bytesDone : 0;
}

unsigned USBAudioAPI::getDFUBytesTotal()
{
    DfuStatus status;
    return dfuStatus("getDFUBytesTotal", status) ? status.bytesTotal : 0;
}

int USBAudioAPI::getDFUPercentageComplete()
{
    const char* who = "getDFUPercentageComplete";
    DfuStatus status;
    if (!dfuStatus(who, status)) {
        return 0;
    }
    if (status.state == TUSBAUDIO_DFU_FAILED) {
        warn(who, "dfu failed");
        return 0;
    }
    if (status.bytesTotal == 0) {
        warn(who, "dfu status totalBytes is 0");
        return 0;
    }
    // 0 is kept for a failure.
    return static_cast<int>(std::clamp<std::uint64_t>(std::uint64_t{status.bytesDone} * 100 / status.bytesTotal, 1, 100));
}

bool USBAudioAPI::setDFUTerminate()
{
    if (!succeeded(mDll->TUSBAUDIO_EndDfuProc)) {
        warn("setDFUTerminate", "failed to end dfu proc");
        return false;
    }
    succeeded(mDll->TUSBAUDIO_UnloadFirmwareImage);
    return true;
}

bool USBAudioAPI::dfuStatus(const char* who, DfuStatus& status)
{
    std::uint32_t extra = 0;
    if (!succeeded(mDll->TUSBAUDIO_GetDfuStatus, &status.state, &status.bytesDone, &status.bytesTotal, &extra)) {
        warn(who, "failed to get dfu status");
        return false;
    }
    return true;
}
