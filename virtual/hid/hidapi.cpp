// Stands in for the HID library: its public calls, spoken to r47d instead of the kernel. A program finds it through its search path
// for libraries and knows nothing of it. What the calls promise is told in the library's own header.

#pragma GCC visibility push(default)
#include <hidapi/hidapi.h>
#pragma GCC visibility pop

#include "virtual/Socket.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <cwchar>
#include <mutex>
#include <new>
#include <poll.h>
#include <string>
#include <sys/socket.h>

namespace
{

constexpr unsigned short kVendor = 0x152A;
constexpr unsigned short kProduct = 0x875C;
constexpr const wchar_t* kManufacturer = L"Vantor";
constexpr const wchar_t* kProductName = L"R47";
constexpr const wchar_t* kSerial = L"R47-0001";
constexpr const char* kPath = "r47:0";
constexpr int kWriteMs = 5000;              // how long the kernel tries to hand a report to a device that does not take it
constexpr unsigned char kReaderMark = 0xFF; // as in r47d's HidServer

std::mutex gErrorMutex;
std::wstring gError = L"Success";

} // namespace

struct hid_device_ {
    r47::Fd fd;
    std::atomic<bool> announced{false};
    std::atomic<bool> nonBlocking{false};
    std::mutex errorMutex; // one thread may read while another writes
    std::wstring error = L"Success";
    std::wstring shown; // what hid_error has given out
    hid_device_info info{};
};

namespace
{

void setGlobalError(const wchar_t* text)
{
    const std::lock_guard lock(gErrorMutex);
    gError = text;
}

int fail(hid_device* device, const wchar_t* text)
{
    const std::lock_guard lock(device->errorMutex);
    device->error = text;
    return -1;
}

r47::Fd connectHid()
{
    return r47::connectTo(r47::defaultFolder(), r47::kHidSocket, SOCK_SEQPACKET);
}

hid_device_info describe()
{
    hid_device_info info{};
    info.path = const_cast<char*>(kPath);
    info.vendor_id = kVendor;
    info.product_id = kProduct;
    info.serial_number = const_cast<wchar_t*>(kSerial);
    info.release_number = 0x0100;
    info.manufacturer_string = const_cast<wchar_t*>(kManufacturer);
    info.product_string = const_cast<wchar_t*>(kProductName);
    info.usage_page = 0xFF00;
    info.usage = 1;
    info.interface_number = 3;
    info.bus_type = HID_API_BUS_USB;
    return info;
}

/// A handle on the device, if it has its HID interface now.
hid_device* openDevice()
{
    r47::Fd fd = connectHid();
    if (!fd) {
        setGlobalError(L"No such device");
        return nullptr;
    }
    // The smallest buffer that there is: what the device has not taken stays with the writer, as on a bus.
    const int least = 1;
    ::setsockopt(fd.get(), SOL_SOCKET, SO_SNDBUF, &least, sizeof least);
    auto* device = new (std::nothrow) hid_device;
    if (!device)
        return nullptr;
    device->fd = std::move(fd);
    device->info = describe();
    return device;
}

/// Tells the device, once, that this handle wants its reports.
void announce(hid_device* device)
{
    if (!device->announced && ::send(device->fd.get(), &kReaderMark, 1, MSG_NOSIGNAL) == 1)
        device->announced = true;
}

int copyString(hid_device* device, const wchar_t* text, wchar_t* string, size_t maxlen)
{
    if (!string || maxlen == 0)
        return fail(device, L"Zero buffer/length");
    std::wcsncpy(string, text, maxlen);
    string[maxlen - 1] = L'\0';
    return 0;
}

} // namespace

int hid_init(void)
{
    return 0;
}

int hid_exit(void)
{
    setGlobalError(L"Success");
    return 0;
}

hid_device_info* hid_enumerate(unsigned short vendor_id, unsigned short product_id)
{
    const bool wanted = (vendor_id == 0 || vendor_id == kVendor) && (product_id == 0 || product_id == kProduct);
    if (!wanted || !connectHid()) {
        setGlobalError(L"No HID devices with requested VID/PID found in the system.");
        return nullptr;
    }
    return new (std::nothrow) hid_device_info(describe());
}

void hid_free_enumeration(hid_device_info* devs)
{
    while (devs) {
        hid_device_info* next = devs->next;
        delete devs; // its texts are constants
        devs = next;
    }
}

hid_device* hid_open(unsigned short vendor_id, unsigned short product_id, const wchar_t* serial_number)
{
    if (vendor_id != kVendor || product_id != kProduct || (serial_number && std::wcscmp(serial_number, kSerial) != 0)) {
        setGlobalError(L"Device with requested VID/PID/(SerialNumber) not found");
        return nullptr;
    }
    return openDevice();
}

hid_device* hid_open_path(const char* path)
{
    if (!path || std::strcmp(path, kPath) != 0) {
        setGlobalError(L"No such path");
        return nullptr;
    }
    return openDevice();
}

void hid_close(hid_device* dev)
{
    delete dev;
}

int hid_write(hid_device* dev, const unsigned char* data, size_t length)
{
    if (!data || length == 0) {
        errno = EINVAL;
        return fail(dev, L"Zero buffer/length");
    }
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kWriteMs);
    for (;;) {
        const auto sent = ::send(dev->fd.get(), data, length, MSG_NOSIGNAL);
        if (sent >= 0)
            return int(sent);
        if (errno != EAGAIN && errno != EINTR)
            return fail(dev, L"Device disconnected");
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()).count();
        if (left <= 0 || !r47::waitFor(dev->fd.get(), POLLOUT, int(left)))
            return fail(dev, L"Connection timed out");
    }
}

int hid_read_timeout(hid_device* dev, unsigned char* data, size_t length, int milliseconds)
{
    announce(dev);
    for (;;) {
        const auto got = ::recv(dev->fd.get(), data, length, 0);
        if (got > 0)
            return int(got);
        if (got == 0 || (errno != EAGAIN && errno != EINTR))
            return fail(dev, L"Device disconnected");
        if (!r47::waitFor(dev->fd.get(), POLLIN, milliseconds))
            return 0;
    }
}

int hid_read(hid_device* dev, unsigned char* data, size_t length)
{
    return hid_read_timeout(dev, data, length, dev->nonBlocking ? 0 : -1);
}

int hid_set_nonblocking(hid_device* dev, int nonblock)
{
    dev->nonBlocking = nonblock != 0;
    return 0;
}

int hid_send_feature_report(hid_device* dev, const unsigned char*, size_t)
{
    return fail(dev, L"The device has no feature reports");
}

int hid_get_feature_report(hid_device* dev, unsigned char*, size_t)
{
    return fail(dev, L"The device has no feature reports");
}

int hid_get_input_report(hid_device* dev, unsigned char*, size_t)
{
    return fail(dev, L"The device gives no input reports on request");
}

int hid_get_manufacturer_string(hid_device* dev, wchar_t* string, size_t maxlen)
{
    return copyString(dev, kManufacturer, string, maxlen);
}

int hid_get_product_string(hid_device* dev, wchar_t* string, size_t maxlen)
{
    return copyString(dev, kProductName, string, maxlen);
}

int hid_get_serial_number_string(hid_device* dev, wchar_t* string, size_t maxlen)
{
    return copyString(dev, kSerial, string, maxlen);
}

hid_device_info* hid_get_device_info(hid_device* dev)
{
    return &dev->info;
}

int hid_get_indexed_string(hid_device* dev, int, wchar_t*, size_t)
{
    return fail(dev, L"hid_get_indexed_string: not supported by hidraw");
}

const wchar_t* hid_error(hid_device* dev)
{
    if (!dev) {
        thread_local std::array<wchar_t, 128> shown;
        const std::lock_guard lock(gErrorMutex);
        shown[gError.copy(shown.data(), shown.size() - 1)] = L'\0';
        return shown.data();
    }
    const std::lock_guard lock(dev->errorMutex);
    dev->shown = dev->error;
    return dev->shown.c_str();
}

const hid_api_version* hid_version(void)
{
    static const hid_api_version version = {HID_API_VERSION_MAJOR, HID_API_VERSION_MINOR, HID_API_VERSION_PATCH};
    return &version;
}

const char* hid_version_str(void)
{
    return HID_API_VERSION_STR;
}
