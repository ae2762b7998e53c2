#include "device/TUsbAudioApiDll.h"

using quillon::DriverLibrary;

TUsbAudioApiDll::~TUsbAudioApiDll() = default;

int TUsbAudioApiDll::load()
{
    if (const int status = mLibrary.load(); status != DriverLibrary::Loaded) {
        return status;
    }
    bool complete = true;
#define QUILLON_RESOLVE(name, type)                                                                                                \
    TUSBAUDIO_##name = reinterpret_cast<type>(mLibrary.resolve("TUSBAUDIO_" #name));                                               \
    complete = complete && TUSBAUDIO_##name;
    TUSBAUDIO_FUNCTIONS(QUILLON_RESOLVE)
#undef QUILLON_RESOLVE
    if (!complete) {
        unload();
        return DriverLibrary::NameMissing;
    }
    return DriverLibrary::Loaded;
}

void TUsbAudioApiDll::unload()
{
#define QUILLON_CLEAR(name, type) TUSBAUDIO_##name = nullptr;
    TUSBAUDIO_FUNCTIONS(QUILLON_CLEAR)
#undef QUILLON_CLEAR
    mLibrary.unload();
}
