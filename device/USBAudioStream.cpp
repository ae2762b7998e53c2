// USBAudioAPI: rate, buffer size and safe mode of the active device.

#include "device/DriverCall.h"
#include "device/USBAudioAPI.h"

#include <algorithm>
#include <array>
#include <iterator>

using namespace quillon;

int USBAudioAPI::getSampleRateOfActiveDevice()
{
    const std::lock_guard lock(mLibraryMutex);
    std::uint32_t rate = 0;
    if (mHandle == 0 || !succeeded(mDll->TUSBAUDIO_GetCurrentSampleRate, mHandle, &rate)) {
        warn("getSampleRateOfActiveDevice", "failed to get current sample rate");
        return 0;
    }
    return static_cast<int>(rate);
}

QList<int> USBAudioAPI::getSampleRateOfActiveDeviceSupported()
{
    const std::lock_guard lock(mLibraryMutex);
    std::array<std::uint32_t, 64> rates{};
    std::uint32_t count = 0;
    const auto capacity = static_cast<std::uint32_t>(rates.size());
    if (mHandle == 0 || !succeeded(mDll->TUSBAUDIO_GetSupportedSampleRates, mHandle, capacity, rates.data(), &count)) {
        warn("getSampleRateOfActiveDeviceSupported", "failed to get supported sample rates");
        return {};
    }
    return {rates.begin(), rates.begin() + std::min(count, capacity)};
}

bool USBAudioAPI::setSampleRateOfActiveDevice(unsigned rate)
{
    if (!getSampleRateOfActiveDeviceSupported().contains(static_cast<int>(rate))) {
        return false;
    }
    const std::lock_guard lock(mLibraryMutex);
    if (!succeeded(mDll->TUSBAUDIO_SetSampleRate, mHandle, rate)) {
        warn("setSampleRateOfActiveDevice", "failed to set sample rate");
        return false;
    }
    return true;
}

int USBAudioAPI::getBufferSizeOfActiveDevice()
{
    TUsbAudioAsioInstanceDetails details;
    TUsbAudioAsioInstanceInfo info;
    return streamInfo("getBufferSizeOfActiveDevice", details, info) ? static_cast<int>(info.bufferSize) : 0;
}

QList<int> USBAudioAPI::getBufferSizeOfActiveDeviceSupported()
{
    TUsbAudioAsioInstanceDetails details;
    TUsbAudioAsioInstanceInfo info;
    if (!streamInfo("getBufferSizeOfActiveDeviceSupported", details, info)) {
        return {};
    }
    const auto count = std::min<std::size_t>(info.supportedCount, std::size(info.supportedSizes));
    return {std::begin(info.supportedSizes), std::begin(info.supportedSizes) + count};
}

bool USBAudioAPI::setBufferSizeOfActiveDevice(unsigned size)
{
    const char* who = "setBufferSizeOfActiveDevice";
    if (!getBufferSizeOfActiveDeviceSupported().contains(static_cast<int>(size))) {
        return false;
    }
    TUsbAudioAsioInstanceDetails details;
    TUsbAudioAsioInstanceInfo info;
    return streamInfo(who, details, info) &&
           setPreferred(who, details.instance, info.bufferSize, size, info.flags & TUSBAUDIO_ASIO_SAFE_MODE);
}

bool USBAudioAPI::getSafeModeOfActiveDevice()
{
    TUsbAudioAsioInstanceDetails details;
    TUsbAudioAsioInstanceInfo info;
    return streamInfo("getSafeModeOfActiveDevice", details, info) && (info.flags & TUSBAUDIO_ASIO_SAFE_MODE) != 0;
}

bool USBAudioAPI::setSafeModeOfActiveDevice(bool on)
{
    const char* who = "setSafeModeOfActiveDevice";
    TUsbAudioAsioInstanceDetails details;
    TUsbAudioAsioInstanceInfo info;
    return streamInfo(who, details, info) &&
           setPreferred(who, details.instance, info.bufferSize, info.bufferSize, on ? TUSBAUDIO_ASIO_SAFE_MODE : 0);
}

/// The first streaming instance, which is that of the preferred device.
bool USBAudioAPI::streamInfo(const char* who, TUsbAudioAsioInstanceDetails& details, TUsbAudioAsioInstanceInfo& info)
{
    const std::lock_guard lock(mLibraryMutex);
    details = {};
    details.size = sizeof(details);
    if (!succeeded(mDll->TUSBAUDIO_GetASIOInstanceDetails, 0u, &details)) {
        warn(who, "failed to get asio instance details");
        return false;
    }
    info = {};
    info.size = sizeof(info);
    if (!succeeded(mDll->TUSBAUDIO_GetASIOInstanceInfo, details.instance, &info)) {
        warn(who, "failed to get asio instance info");
        return false;
    }
    return true;
}

bool USBAudioAPI::setPreferred(const char* who, unsigned instance, unsigned current, unsigned size, unsigned flags)
{
    const std::lock_guard lock(mLibraryMutex);
    if (!succeeded(mDll->TUSBAUDIO_SetASIOBufferPreferredSize, instance, current, size, flags)) {
        warn(who, "failed to set asio buffer preferred size");
        return false;
    }
    return true;
}
