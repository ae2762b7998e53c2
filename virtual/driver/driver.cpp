// A library of the TUSBAUDIO family for the virtual R47. What the calls promise is told in device/TUsbAudioApi.h.

#include "device/TUsbAudioApi.h"
#include "virtual/driver/DriverChannel.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <type_traits>

namespace
{

constexpr std::uint32_t kMajor = 5;
constexpr std::uint32_t kMinor = 13;
constexpr std::uint16_t kVendor = 0x152A;
constexpr std::uint16_t kProduct = 0x875C;
constexpr char16_t kProductName[] = u"R47";
constexpr std::uint32_t kMostImageBytes = 64u << 20;

constexpr TUsbAudioStatus kNoDevice = 1;
constexpr TUsbAudioStatus kBadArgument = 2;
constexpr TUsbAudioStatus kBadImage = 3;

using Numbers = std::vector<std::uint64_t>;

r47::DriverChannel& channel()
{
    thread_local r47::DriverChannel instance;
    return instance;
}

std::atomic<std::uint32_t> gDeviceCount{0}; // as of the last enumeration
std::atomic<std::uint32_t> gImageBytes{0};  // of the loaded firmware image

TUsbAudioStatus call(std::string_view name, std::initializer_list<std::uint64_t> arguments, Numbers& results, std::size_t least = 0)
{
    const std::uint64_t status = channel().call(name, arguments, results);
    if (status == 0 && results.size() < least)
        return kNoDevice;
    return TUsbAudioStatus(status);
}

TUsbAudioStatus call(std::string_view name, std::initializer_list<std::uint64_t> arguments)
{
    Numbers results;
    return call(name, arguments, results);
}

/// Calls for one number.
TUsbAudioStatus fetch(std::string_view name, std::initializer_list<std::uint64_t> arguments, std::uint32_t* out)
{
    if (!out)
        return kBadArgument;
    Numbers results;
    const TUsbAudioStatus status = call(name, arguments, results, 1);
    if (status == TUSBAUDIO_SUCCESS)
        *out = std::uint32_t(results[0]);
    return status;
}

} // namespace

#pragma GCC visibility push(default)
extern "C" {

std::uint32_t TUSBAUDIO_GetApiVersion()
{
    return kMajor << 16 | kMinor;
}

std::int32_t TUSBAUDIO_CheckApiVersion(std::uint32_t major, std::uint32_t minor)
{
    return major == kMajor && minor <= kMinor;
}

TUsbAudioStatus TUSBAUDIO_EnumerateDevices()
{
    std::uint32_t count = 0;
    const TUsbAudioStatus status = fetch("list", {}, &count);
    gDeviceCount = count;
    // Without r47d there is nothing plugged in, which is no failure of the driver.
    return status == kNoDevice ? TUSBAUDIO_SUCCESS : status;
}

std::uint32_t TUSBAUDIO_GetDeviceCount()
{
    return gDeviceCount;
}

TUsbAudioStatus TUSBAUDIO_OpenDeviceByIndex(std::uint32_t index, TUsbAudioHandle* handle)
{
    return fetch("open", {index}, handle);
}

TUsbAudioStatus TUSBAUDIO_CloseDevice(TUsbAudioHandle handle)
{
    // A handle is a number that both sides can check; nothing is held for it, and one of a device that has gone is closed as well.
    return handle ? TUSBAUDIO_SUCCESS : kBadArgument;
}

TUsbAudioStatus TUSBAUDIO_GetDeviceProperties(TUsbAudioHandle handle, TUsbAudioDeviceProperties* properties)
{
    if (!properties || properties->size != sizeof *properties)
        return kBadArgument;
    const TUsbAudioStatus status = call("check", {handle});
    if (status == TUSBAUDIO_SUCCESS) {
        properties->usbVendorId = kVendor;
        properties->usbProductId = kProduct;
        std::fill(std::begin(properties->productString), std::end(properties->productString), u'\0');
        std::copy(std::begin(kProductName), std::end(kProductName), properties->productString);
    }
    return status;
}

TUsbAudioStatus TUSBAUDIO_GetSupportedSampleRates(TUsbAudioHandle handle, std::uint32_t capacity, std::uint32_t* rates,
                                                  std::uint32_t* count)
{
    if (!rates || !count)
        return kBadArgument;
    Numbers results;
    const TUsbAudioStatus status = call("rates", {handle}, results);
    *count = std::uint32_t(std::min<std::size_t>(results.size(), capacity));
    for (std::uint32_t i = 0; i < *count; ++i)
        rates[i] = std::uint32_t(results[i]);
    return status;
}

TUsbAudioStatus TUSBAUDIO_GetCurrentSampleRate(TUsbAudioHandle handle, std::uint32_t* rate)
{
    return fetch("rate", {handle}, rate);
}

TUsbAudioStatus TUSBAUDIO_SetSampleRate(TUsbAudioHandle handle, std::uint32_t rate)
{
    return call("setrate", {handle, rate});
}

TUsbAudioStatus TUSBAUDIO_GetASIOInstanceDetails(std::uint32_t index, TUsbAudioAsioInstanceDetails* details)
{
    if (!details || details->size != sizeof *details)
        return kBadArgument;
    return fetch("instance", {index}, &details->instance);
}

TUsbAudioStatus TUSBAUDIO_GetASIOInstanceInfo(std::uint32_t instance, TUsbAudioAsioInstanceInfo* info)
{
    if (!info || info->size != sizeof *info)
        return kBadArgument;
    Numbers results;
    const TUsbAudioStatus status = call("info", {instance}, results, 2);
    if (status != TUSBAUDIO_SUCCESS)
        return status;
    info->bufferSize = std::uint32_t(results[0]);
    info->flags = std::uint32_t(results[1]);
    info->supportedCount = std::uint32_t(std::min(results.size() - 2, std::size(info->supportedSizes)));
    for (std::uint32_t i = 0; i < info->supportedCount; ++i)
        info->supportedSizes[i] = std::uint32_t(results[2 + i]);
    return status;
}

TUsbAudioStatus TUSBAUDIO_SetASIOBufferPreferredSize(std::uint32_t instance, std::uint32_t, std::uint32_t size, std::uint32_t flags)
{
    return call("setbuffer", {instance, size, flags});
}

TUsbAudioStatus TUSBAUDIO_SetPreferredASIODevice(TUsbAudioHandle handle, std::uint32_t)
{
    return call("check", {handle});
}

TUsbAudioStatus TUSBAUDIO_LoadFirmwareImageFromFile(const char16_t* path, std::uint32_t index)
{
    if (!path)
        return kBadArgument;
    if (index >= gDeviceCount)
        return kNoDevice;
    std::error_code error;
    const std::filesystem::path file(path);
    const bool isFile = std::filesystem::is_regular_file(file, error);
    const auto bytes = isFile ? std::filesystem::file_size(file, error) : 0;
    if (error || bytes == 0 || bytes > kMostImageBytes)
        return kBadImage;
    gImageBytes = std::uint32_t(bytes);
    return TUSBAUDIO_SUCCESS;
}

TUsbAudioStatus TUSBAUDIO_GetFirmwareImageSize(std::uint32_t* bytes, std::uint32_t)
{
    if (!bytes)
        return kBadArgument;
    *bytes = gImageBytes;
    return *bytes ? TUSBAUDIO_SUCCESS : kBadImage;
}

TUsbAudioStatus TUSBAUDIO_UnloadFirmwareImage()
{
    gImageBytes = 0;
    return TUSBAUDIO_SUCCESS;
}

TUsbAudioStatus TUSBAUDIO_StartDfuDownload(std::uint32_t index, std::uint32_t, std::uint32_t)
{
    const std::uint32_t bytes = gImageBytes;
    return bytes ? call("dfustart", {index, bytes}) : kBadImage;
}

TUsbAudioStatus TUSBAUDIO_GetDfuStatus(std::uint32_t* state, std::uint32_t* bytesDone, std::uint32_t* bytesTotal,
                                       std::uint32_t* extra)
{
    if (!state || !bytesDone || !bytesTotal)
        return kBadArgument;
    Numbers results;
    const TUsbAudioStatus status = call("dfustatus", {}, results, 3);
    if (status != TUSBAUDIO_SUCCESS)
        return status;
    *state = std::uint32_t(results[0]);
    *bytesDone = std::uint32_t(results[1]);
    *bytesTotal = std::uint32_t(results[2]);
    if (extra)
        *extra = 0;
    return status;
}

TUsbAudioStatus TUSBAUDIO_EndDfuProc()
{
    return call("dfuend", {});
}

} // extern "C"
#pragma GCC visibility pop

// Every name of the interface is here, with its type.
#define CHECK_EXPORT(name, type) static_assert(std::is_same_v<decltype(&TUSBAUDIO_##name), type>);
TUSBAUDIO_FUNCTIONS(CHECK_EXPORT)
#undef CHECK_EXPORT
