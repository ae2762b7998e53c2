#pragma once

#include <cstddef>
#include <memory>
#include <mutex>

struct hid_device_;

namespace quillon
{

class HidLink;

/// The calls of the HID library that the program makes. Signatures and results are hidapi's.
struct HidFunctions {
    int (*init)();
    int (*exit)();
    hid_device_* (*open)(unsigned short vendorId, unsigned short productId, const wchar_t* serialNumber);
    void (*close)(hid_device_* device);
    int (*readTimeout)(hid_device_* device, unsigned char* buffer, std::size_t length, int milliseconds);
    int (*write)(hid_device_* device, const unsigned char* buffer, std::size_t length);
};

/// Those of the linked library.
HidFunctions linkedHidFunctions();

} // namespace quillon

/// The one HID connection of the process: two handles of one device, one to read and one to write. Outlives all device objects.
/// Reading and writing each belong to one thread at a time; all else is the GUI thread's. Nothing here waits for a call of the
/// HID library that is under way on another thread, except the second of two readers or two writers.
class USBHIDAPI
{
public:
    static USBHIDAPI& instance();
    /// Takes other calls in place of the linked library's, from the next open on.
    static void setFunctions(const quillon::HidFunctions& functions);

    void init();
    /// Leaves the HID library. A connection that is still open is closed later, by close or by its last user.
    void exit();

    /// Connects to the first device of this identity, after dropping an open connection. False when it can't be opened.
    bool open(unsigned short vendorId, unsigned short productId);
    /// Drops the connection: reads and writes from now on give -1. A call under way keeps its own handle until it returns.
    void close();

    /// One input report without report id, waiting at most 100 ms for it. The number of bytes, 0 for none in that time,
    /// -1 once the connection is lost or absent: its read handle is then closed, and writing fails too.
    int read(unsigned char* buffer, int length);
    /// One output report with its report id. The number of bytes; -1 once the connection is lost or absent: its write
    /// handle is then closed, and the read that follows fails too. May take seconds when the device has stopped reading.
    int write(const unsigned char* buffer, int length);

private:
    USBHIDAPI();
    std::shared_ptr<quillon::HidLink> link() const;

    mutable std::mutex mMutex; // held for a copy of the pointer only
    std::shared_ptr<quillon::HidLink> mLink;
    quillon::HidFunctions mFunctions;
};
