// Frames a second through the queue and the writer thread, with a device that takes no time.

#include "bench/Harness.h"
#include "device/USBHIDAPI.h"

#include <QMutex>
#include <QThread>
#include <QWaitCondition>
#include <atomic>
#include <thread>

namespace bench
{

namespace
{

std::atomic<int> gWritten = 0;

int countWrite(hid_device_*, const unsigned char*, std::size_t length)
{
    gWritten.fetch_add(1, std::memory_order_relaxed);
    return int(length);
}

int readNothing(hid_device_*, unsigned char*, std::size_t, int ms)
{
    QThread::msleep(static_cast<unsigned long>(ms));
    return 0;
}

hid_device_* openNothing(unsigned short, unsigned short, const wchar_t*)
{
    static int device = 0;
    return reinterpret_cast<hid_device_*>(&device);
}

double perSecond(int frames, const std::function<void(int)>& send)
{
    gWritten = 0;
    const std::int64_t begin = nowNs();
    for (int i = 0; i < frames; ++i) {
        send(i);
    }
    while (gWritten < frames) {
        QThread::usleep(50);
    }
    return frames / (double(nowNs() - begin) / 1e9);
}

/// The queue that one would write first: a lock, a wake and a write for each element.
class PlainQueue
{
public:
    ~PlainQueue()
    {
        add(QByteArray());
        mThread.join();
    }
    void add(const QByteArray& bytes)
    {
        const QMutexLocker lock(&mMutex);
        mQueue.append(bytes);
        mFilled.wakeOne();
    }

private:
    void run()
    {
        for (;;) {
            QMutexLocker lock(&mMutex);
            while (mQueue.isEmpty()) {
                mFilled.wait(&mMutex);
            }
            const QByteArray bytes = mQueue.takeFirst();
            lock.unlock();
            if (bytes.isEmpty()) {
                return;
            }
            countWrite(nullptr, nullptr, std::size_t(bytes.size()));
        }
    }

    QMutex mMutex;
    QWaitCondition mFilled;
    QList<QByteArray> mQueue;
    std::thread mThread{&PlainQueue::run, this};
};

} // namespace

QJsonObject writerRate(const QStringList& arguments)
{
    const int frames = arguments[0].toInt();
    USBHIDAPI::setFunctions({.init = [] { return 0; },
                             .exit = [] { return 0; },
                             .open = openNothing,
                             .close = [](hid_device_*) {},
                             .readTimeout = readNothing,
                             .write = countWrite});
    QJsonObject figures;
    {
        DeviceR47 device;
        USBHIDAPI::instance().open(0x152A, 0x875C);
        device.startDevice();
        figures["writer"] = perSecond(frames, [&](int i) { device.sendFrame({.code = 0x2304, .value = i}); });
    }
    PlainQueue plain;
    figures["plain"] = perSecond(frames, [&](int i) {
        const quillon::Report report = quillon::encodeOutput({.code = 0x2304, .value = i});
        plain.add(QByteArray(reinterpret_cast<const char*>(report.data()), qsizetype(report.size())));
    });
    return figures;
}

} // namespace bench
