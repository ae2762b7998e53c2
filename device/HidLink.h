#pragma once

#include "device/USBHIDAPI.h"

#include <atomic>
#include <memory>
#include <mutex>

namespace quillon
{

/// One connection to a HID device: a handle to read and a handle to write, so that no handle is ever in two calls at once.
/// Shared by all who may be in a call; a side's handle is closed by the call that finds the connection lost, or with the last
/// owner.
class HidLink
{
public:
    /// Opens both handles; null when either can't be opened.
    static std::shared_ptr<HidLink> open(const HidFunctions& functions, unsigned short vendorId, unsigned short productId);
    ~HidLink();
    HidLink(const HidLink&) = delete;
    HidLink& operator=(const HidLink&) = delete;

    /// Bytes read, 0 for none within the bound, -1 once the connection is lost. For one reader.
    int read(unsigned char* buffer, std::size_t length);
    /// Bytes written, -1 once the connection is lost. For one writer.
    int write(const unsigned char* buffer, std::size_t length);
    /// Lets every later call give -1 and closes what is in no call. Never waits.
    void drop();

private:
    struct Side {
        std::mutex mutex;
        hid_device_* handle = nullptr;
    };

    explicit HidLink(const HidFunctions& functions) : mFunctions(functions) {}
    template<typename Call> int guarded(Side& side, Call call);
    void close(Side& side);

    const HidFunctions mFunctions; // a copy, since a call may outlast the object that it came from
    std::atomic<bool> mFailed = false;
    Side mReading;
    Side mWriting;
};

} // namespace quillon
