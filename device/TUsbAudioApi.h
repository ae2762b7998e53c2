#pragma once
// The C interface between this application and a driver library of the TUSBAUDIO family.
//
// The names are the driver's; the record layouts below are the agreement between this application and every library that is
// registered for it (the one that plays a virtual device among them). They are plain C, fixed in size, and carry their own
// size first, so that an older and a newer side can refuse each other instead of reading past an end.
// All functions return 0 for success. None may be called from two threads at once, except the firmware download calls.

#include <cstdint>

extern "C" {

using TUsbAudioStatus = std::uint32_t;
using TUsbAudioHandle = std::uint32_t; // 0 is no handle

inline constexpr TUsbAudioStatus TUSBAUDIO_SUCCESS = 0;
inline constexpr std::uint32_t TUSBAUDIO_DFU_FAILED = 6; // the one download state that the application knows by number

struct TUsbAudioDeviceProperties {
    std::uint32_t size; // filled by the caller: sizeof(TUsbAudioDeviceProperties)
    std::uint16_t usbVendorId;
    std::uint16_t usbProductId;
    char16_t productString[128]; // UTF-16, ends with 0
};

struct TUsbAudioAsioInstanceDetails {
    std::uint32_t size;
    std::uint32_t instance; // handle of the streaming instance for the two calls below
};

struct TUsbAudioAsioInstanceInfo {
    std::uint32_t size;
    std::uint32_t bufferSize;         // samples, at the current rate
    std::uint32_t flags;              // bit 16: safe mode
    std::uint32_t supportedCount;     // entries used in supportedSizes
    std::uint32_t supportedSizes[32]; // samples, ascending
};

inline constexpr std::uint32_t TUSBAUDIO_ASIO_SAFE_MODE = 1u << 16;

using PfnGetApiVersion = std::uint32_t (*)();                                          // major << 16 | minor
using PfnCheckApiVersion = std::int32_t (*)(std::uint32_t major, std::uint32_t minor); // non-zero: compatible
using PfnEnumerateDevices = TUsbAudioStatus (*)();
using PfnGetDeviceCount = std::uint32_t (*)();
using PfnOpenDeviceByIndex = TUsbAudioStatus (*)(std::uint32_t index, TUsbAudioHandle* handle);
using PfnCloseDevice = TUsbAudioStatus (*)(TUsbAudioHandle handle);
using PfnGetDeviceProperties = TUsbAudioStatus (*)(TUsbAudioHandle handle, TUsbAudioDeviceProperties* properties);
using PfnGetSupportedSampleRates = TUsbAudioStatus (*)(TUsbAudioHandle handle, std::uint32_t capacity, std::uint32_t* rates,
                                                       std::uint32_t* count);
using PfnGetCurrentSampleRate = TUsbAudioStatus (*)(TUsbAudioHandle handle, std::uint32_t* rate);
using PfnSetSampleRate = TUsbAudioStatus (*)(TUsbAudioHandle handle, std::uint32_t rate);
using PfnGetASIOInstanceDetails = TUsbAudioStatus (*)(std::uint32_t index, TUsbAudioAsioInstanceDetails* details);
using PfnGetASIOInstanceInfo = TUsbAudioStatus (*)(std::uint32_t instance, TUsbAudioAsioInstanceInfo* info);
using PfnSetASIOBufferPreferredSize = TUsbAudioStatus (*)(std::uint32_t instance, std::uint32_t bufferSize, std::uint32_t size,
                                                          std::uint32_t flags);
using PfnSetPreferredASIODevice = TUsbAudioStatus (*)(TUsbAudioHandle handle, std::uint32_t flags);
using PfnLoadFirmwareImageFromFile = TUsbAudioStatus (*)(const char16_t* path, std::uint32_t index);
using PfnGetFirmwareImageSize = TUsbAudioStatus (*)(std::uint32_t* bytes, std::uint32_t flags);
using PfnUnloadFirmwareImage = TUsbAudioStatus (*)();
using PfnStartDfuDownload = TUsbAudioStatus (*)(std::uint32_t index, std::uint32_t target, std::uint32_t flags);
using PfnGetDfuStatus = TUsbAudioStatus (*)(std::uint32_t* state, std::uint32_t* bytesDone, std::uint32_t* bytesTotal,
                                            std::uint32_t* extra);
using PfnEndDfuProc = TUsbAudioStatus (*)();

} // extern "C"

// Every exported name, once: X(suffix of the name, type of the pointer).
#define TUSBAUDIO_FUNCTIONS(X)                                                                                                     \
    X(GetApiVersion, PfnGetApiVersion)                                                                                             \
    X(CheckApiVersion, PfnCheckApiVersion)                                                                                         \
    X(EnumerateDevices, PfnEnumerateDevices)                                                                                       \
    X(GetDeviceCount, PfnGetDeviceCount)                                                                                           \
    X(OpenDeviceByIndex, PfnOpenDeviceByIndex)                                                                                     \
    X(CloseDevice, PfnCloseDevice)                                                                                                 \
    X(GetDeviceProperties, PfnGetDeviceProperties)                                                                                 \
    X(GetSupportedSampleRates, PfnGetSupportedSampleRates)                                                                         \
    X(GetCurrentSampleRate, PfnGetCurrentSampleRate)                                                                               \
    X(SetSampleRate, PfnSetSampleRate)                                                                                             \
    X(GetASIOInstanceDetails, PfnGetASIOInstanceDetails)                                                                           \
    X(GetASIOInstanceInfo, PfnGetASIOInstanceInfo)                                                                                 \
    X(SetASIOBufferPreferredSize, PfnSetASIOBufferPreferredSize)                                                                   \
    X(SetPreferredASIODevice, PfnSetPreferredASIODevice)                                                                           \
    X(LoadFirmwareImageFromFile, PfnLoadFirmwareImageFromFile)                                                                     \
    X(GetFirmwareImageSize, PfnGetFirmwareImageSize)                                                                               \
    X(UnloadFirmwareImage, PfnUnloadFirmwareImage)                                                                                 \
    X(StartDfuDownload, PfnStartDfuDownload)                                                                                       \
    X(GetDfuStatus, PfnGetDfuStatus)                                                                                               \
    X(EndDfuProc, PfnEndDfuProc)
