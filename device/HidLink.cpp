#include "device/HidLink.h"

#include <utility>

namespace quillon
{

namespace
{
// How long losing or stopping a silent device may go unnoticed by its reader.
constexpr int kReadBoundMs = 100;
} // namespace

std::shared_ptr<HidLink> HidLink::open(const HidFunctions& functions, unsigned short vendorId, unsigned short productId)
{
    std::shared_ptr<HidLink> link(new HidLink(functions));
    link->mReading.handle = functions.open(vendorId, productId, nullptr);
    if (link->mReading.handle) {
        link->mWriting.handle = functions.open(vendorId, productId, nullptr);
    }
    return link->mWriting.handle ? link : nullptr;
}

HidLink::~HidLink()
{
    close(mReading);
    close(mWriting);
}

int HidLink::read(unsigned char* buffer, std::size_t length)
{
    return guarded(mReading, [&](hid_device_* handle) { return mFunctions.readTimeout(handle, buffer, length, kReadBoundMs); });
}

int HidLink::write(const unsigned char* buffer, std::size_t length)
{
    return guarded(mWriting, [&](hid_device_* handle) { return mFunctions.write(handle, buffer, length); });
}

void HidLink::drop()
{
    mFailed.store(true);
    for (Side* side : {&mReading, &mWriting}) {
        if (const std::unique_lock lock(side->mutex, std::try_to_lock); lock) {
            close(*side);
        }
    }
}

template<typename Call> int HidLink::guarded(Side& side, Call call)
{
    const std::lock_guard lock(side.mutex);
    if (!mFailed.load()) {
        if (const int result = call(side.handle); result >= 0) {
            return result;
        }
        mFailed.store(true);
    }
    close(side);
    return -1;
}

void HidLink::close(Side& side)
{
    if (hid_device_* handle = std::exchange(side.handle, nullptr)) {
        mFunctions.close(handle);
    }
}

} // namespace quillon
