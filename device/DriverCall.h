#pragma once
// What every operation of the driver bridge does: call a function that may be missing, and say what failed.

#include "device/TUsbAudioApi.h"

#include <QtGlobal>

namespace quillon
{

/// Calls a function of the driver library. False when it is missing or fails.
template<typename Function, typename... Arguments> bool succeeded(Function function, Arguments... arguments)
{
    return function && function(arguments...) == TUSBAUDIO_SUCCESS;
}

/// One warning in the log: the operation of the bridge, and why it failed.
inline void warn(const char* who, const char* reason)
{
    qWarning("USBAudioAPI::%s //%s", who, reason);
}

} // namespace quillon
