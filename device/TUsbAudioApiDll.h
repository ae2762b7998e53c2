#pragma once

#include "device/DriverLibrary.h"
#include "device/TUsbAudioApi.h"

/// The functions of the driver library, all null until it is loaded. A derived class may fill the pointers itself.
class TUsbAudioApiDll
{
public:
    TUsbAudioApiDll() = default;
    virtual ~TUsbAudioApiDll();
    TUsbAudioApiDll(const TUsbAudioApiDll&) = delete;
    TUsbAudioApiDll& operator=(const TUsbAudioApiDll&) = delete;

    /// Loads the registered library and resolves every name. A library that lacks one is unloaded again.
    /// A value of DriverLibrary::Status; GUI thread.
    virtual int load();
    /// Nulls all functions, then unloads.
    virtual void unload();

#define QUILLON_DECLARE(name, type) type TUSBAUDIO_##name = nullptr;
    TUSBAUDIO_FUNCTIONS(QUILLON_DECLARE)
#undef QUILLON_DECLARE

private:
    quillon::DriverLibrary mLibrary;
};
