// A driver library for the loader: exports every name, or all but one.

#include "device/TUsbAudioApi.h"

extern "C" {

std::uint32_t TUSBAUDIO_GetApiVersion()
{
    return 5u << 16 | 13;
}

std::int32_t TUSBAUDIO_CheckApiVersion(std::uint32_t major, std::uint32_t minor)
{
    return major == 5 && minor == 13;
}

std::uint32_t TUSBAUDIO_GetDeviceCount()
{
    return 0;
}

// The rest is there to be found and only called without a device.
#define SUCCEED(name)                                                                                                              \
    TUsbAudioStatus TUSBAUDIO_##name()                                                                                             \
    {                                                                                                                              \
        return TUSBAUDIO_SUCCESS;                                                                                                  \
    }
SUCCEED(EnumerateDevices)
SUCCEED(OpenDeviceByIndex)
SUCCEED(CloseDevice)
SUCCEED(GetDeviceProperties)
SUCCEED(GetSupportedSampleRates)
SUCCEED(GetCurrentSampleRate)
SUCCEED(SetSampleRate)
SUCCEED(GetASIOInstanceDetails)
SUCCEED(GetASIOInstanceInfo)
SUCCEED(SetASIOBufferPreferredSize)
SUCCEED(SetPreferredASIODevice)
SUCCEED(LoadFirmwareImageFromFile)
SUCCEED(GetFirmwareImageSize)
SUCCEED(UnloadFirmwareImage)
SUCCEED(StartDfuDownload)
SUCCEED(GetDfuStatus)
#ifndef FAKE_DRIVER_INCOMPLETE
SUCCEED(EndDfuProc)
#endif

} // extern "C"
