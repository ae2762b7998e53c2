#pragma once
// A handle of the HID library as a program would hold it, and reports byte by byte, without any table of the program's.

#include <QByteArray>
#include <QElapsedTimer>
#include <algorithm>
#include <ctime>
#include <hidapi/hidapi.h>
#include <memory>

struct Closer {
    void operator()(hid_device* device) const { hid_close(device); }
};
using Handle = std::unique_ptr<hid_device, Closer>;

inline Handle openR47()
{
    return Handle(hid_open(0x152A, 0x875C, nullptr));
}

inline QByteArray outputReport(int code, qint32 value)
{
    QByteArray bytes = QByteArray::fromHex("00223320010100000000000000006677");
    bytes[6] = char(code >> 8);
    bytes[7] = char(code);
    for (int i = 0; i < 4; ++i)
        bytes[8 + i] = char(value >> (24 - 8 * i));
    return bytes;
}

inline int write(const Handle& handle, int code, qint32 value)
{
    const QByteArray bytes = outputReport(code, value);
    return hid_write(handle.get(), reinterpret_cast<const unsigned char*>(bytes.constData()), std::size_t(bytes.size()));
}

/// The next report, or nothing.
inline QByteArray read(const Handle& handle, int ms = 3000)
{
    QByteArray bytes(64, '\0');
    const int got = hid_read_timeout(handle.get(), reinterpret_cast<unsigned char*>(bytes.data()), std::size_t(bytes.size()), ms);
    return bytes.first(std::max(got, 0));
}

inline int codeOf(const QByteArray& report)
{
    return report.size() < 7 ? -1 : quint8(report[5]) << 8 | quint8(report[6]);
}

inline qint32 valueOf(const QByteArray& report)
{
    quint32 value = 0;
    for (int i = 7; i < 11 && report.size() > 10; ++i)
        value = value << 8 | quint8(report[i]);
    return qint32(value);
}

/// Reads on until a report of that code has come, whose value is the result; -9999 when it does not come.
inline qint32 nextOf(const Handle& handle, int code)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 3000) {
        const QByteArray report = read(handle, 100);
        if (codeOf(report) == code)
            return valueOf(report);
    }
    return -9999;
}

inline qint64 monotonicNs()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}
