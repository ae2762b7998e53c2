#include "FakeHid.h"
#include "device/Frame.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <mutex>
#include <set>
#include <thread>

struct hid_device_ {
    bool busy = false;
};

namespace
{

struct Device {
    std::mutex mutex;
    std::condition_variable changed;
    fakehid::Behaviour behaviour;
    std::deque<QByteArray> reports;
    QList<QByteArray> written;
    qint64 writes = 0;
    int opened = 0;
    bool gone = false;
    std::set<hid_device_*> handles;
    QByteArray misuse;
};

Device& device()
{
    static auto* instance = new Device; // outlives a writer that was left behind
    return *instance;
}

/// One call with a handle, under the lock of the device.
class Call
{
public:
    explicit Call(hid_device_* handle) : mHandle(handle)
    {
        if (!device().handles.contains(handle)) {
            device().misuse = "call with a closed handle";
            mHandle = nullptr;
        } else if (std::exchange(handle->busy, true)) {
            device().misuse = "handle in two calls";
        }
    }
    ~Call()
    {
        if (mHandle) {
            mHandle->busy = false;
        }
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

private:
    hid_device_* mHandle;
};

int fakeNothing()
{
    return 0;
}

hid_device_* fakeOpen(unsigned short vendorId, unsigned short productId, const wchar_t* serialNumber)
{
    const std::lock_guard lock(device().mutex);
    const int allowed = device().behaviour.opensAllowed;
    if (vendorId != 0x152A || productId != 0x875C || serialNumber || (allowed >= 0 && device().opened >= allowed)) {
        return nullptr;
    }
    ++device().opened;
    return *device().handles.insert(new hid_device_).first;
}

void fakeClose(hid_device_* handle)
{
    const std::lock_guard lock(device().mutex);
    if (device().handles.erase(handle) == 0) {
        device().misuse = "handle closed twice";
        return;
    }
    if (handle->busy) {
        device().misuse = "handle closed during a call";
    }
    delete handle;
}

int fakeRead(hid_device_* handle, unsigned char* buffer, std::size_t length, int milliseconds)
{
    std::unique_lock lock(device().mutex);
    const Call call(handle);
    if (milliseconds < 0 || milliseconds > 500) {
        device().misuse = "unbounded read";
    }
    // Against the system's clock, since the thread sanitizer of this compiler doesn't know a wait against the steady one.
    const auto until = std::chrono::system_clock::now() + std::chrono::milliseconds(milliseconds);
    device().changed.wait_until(lock, until, [] { return device().gone || !device().reports.empty(); });
    if (!device().reports.empty()) {
        const QByteArray report = device().reports.front();
        device().reports.pop_front();
        const auto size = std::min(length, static_cast<std::size_t>(report.size()));
        std::memcpy(buffer, report.constData(), size);
        return static_cast<int>(size);
    }
    return device().gone ? -1 : 0;
}

int fakeWrite(hid_device_* handle, const unsigned char* buffer, std::size_t length)
{
    std::unique_lock lock(device().mutex);
    const Call call(handle);
    const fakehid::Behaviour& behaviour = device().behaviour;
    const auto gone = [] { return device().gone; };
    if (behaviour.blockWriteAfter == device().writes) {
        device().changed.wait_until(lock, std::chrono::system_clock::now() + std::chrono::milliseconds(behaviour.blockMs), gone);
        return -1;
    }
    if (device().gone || behaviour.failWriteAfter == device().writes) {
        return -1;
    }
    if (const int ms = behaviour.writeMs; ms > 0) {
        lock.unlock();
        std::this_thread::sleep_for(std::chrono::milliseconds(ms));
        lock.lock();
    }
    ++device().writes;
    if (behaviour.keep) {
        device().written.append(QByteArray(reinterpret_cast<const char*>(buffer), static_cast<qsizetype>(length)));
    }
    if (const auto frame = quillon::decodeOutput({buffer, length}); frame && behaviour.answer >= 0) {
        const quillon::Report answer = quillon::encodeInput({.code = frame->code, .value = behaviour.answer});
        device().reports.emplace_back(reinterpret_cast<const char*>(answer.data()), static_cast<qsizetype>(answer.size()));
        device().changed.notify_all();
    }
    return static_cast<int>(length);
}

} // namespace

namespace fakehid
{

void install(const Behaviour& behaviour)
{
    {
        const std::lock_guard lock(device().mutex);
        device().behaviour = behaviour;
        device().reports.clear();
        device().written.clear();
        device().writes = 0;
        device().opened = 0;
        device().gone = false;
        device().misuse.clear();
    }
    USBHIDAPI::setFunctions({fakeNothing, fakeNothing, fakeOpen, fakeClose, fakeRead, fakeWrite});
}

void report(const QByteArray& bytes)
{
    const std::lock_guard lock(device().mutex);
    device().reports.push_back(bytes);
    device().changed.notify_all();
}

void hurry()
{
    const std::lock_guard lock(device().mutex);
    device().behaviour.writeMs = 0;
}

void unplug()
{
    const std::lock_guard lock(device().mutex);
    device().gone = true;
    device().changed.notify_all();
}

QList<QByteArray> written()
{
    const std::lock_guard lock(device().mutex);
    return device().written;
}

qint64 writtenCount()
{
    const std::lock_guard lock(device().mutex);
    return device().writes;
}

int openHandles()
{
    const std::lock_guard lock(device().mutex);
    return static_cast<int>(device().handles.size());
}

QByteArray misuse()
{
    const std::lock_guard lock(device().mutex);
    return device().misuse;
}

} // namespace fakehid
