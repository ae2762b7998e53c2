#include "device/USBHIDAPI.h"

#include "device/HidLink.h"

#include <hidapi.h>
#include <utility>

namespace quillon
{

HidFunctions linkedHidFunctions()
{
    return {hid_init, hid_exit, hid_open, hid_close, hid_read_timeout, hid_write};
}

} // namespace quillon

using quillon::HidLink;

USBHIDAPI::USBHIDAPI() : mFunctions(quillon::linkedHidFunctions()) {}

USBHIDAPI& USBHIDAPI::instance()
{
    // Never destroyed: a writer that was left behind may still use it while the process ends.
    static auto* instance = new USBHIDAPI;
    return *instance;
}

void USBHIDAPI::setFunctions(const quillon::HidFunctions& functions)
{
    instance().mFunctions = functions;
}

void USBHIDAPI::init()
{
    mFunctions.init();
}

void USBHIDAPI::exit()
{
    mFunctions.exit();
}

bool USBHIDAPI::open(unsigned short vendorId, unsigned short productId)
{
    close();
    auto opened = HidLink::open(mFunctions, vendorId, productId);
    const std::lock_guard lock(mMutex);
    mLink = std::move(opened);
    return mLink != nullptr;
}

void USBHIDAPI::close()
{
    std::shared_ptr<HidLink> dropped;
    {
        const std::lock_guard lock(mMutex);
        dropped = std::exchange(mLink, nullptr);
    }
    if (dropped) {
        dropped->drop();
    }
}

int USBHIDAPI::read(unsigned char* buffer, int length)
{
    const auto current = link();
    return current && length >= 0 ? current->read(buffer, static_cast<std::size_t>(length)) : -1;
}

int USBHIDAPI::write(const unsigned char* buffer, int length)
{
    const auto current = link();
    return current && length >= 0 ? current->write(buffer, static_cast<std::size_t>(length)) : -1;
}

std::shared_ptr<HidLink> USBHIDAPI::link() const
{
    const std::lock_guard lock(mMutex);
    return mLink;
}
