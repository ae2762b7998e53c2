#include "device/Sender.h"

#include "device/ExitFrame.h"
#include "device/USBHIDAPI.h"

#include <QElapsedTimer>
#include <algorithm>
#include <chrono>
#include <utility>

namespace
{

constexpr unsigned long kPollMs = 50;
// A device that works takes a report within a few milliseconds; the kernel gives up on one that doesn't after five seconds.
constexpr qint64 kStallMs = 1200;
constexpr qint64 kDrainMs = 5000;
// Values that change together come microseconds apart, while falling asleep and being woken costs both threads more than that. So
// the writer looks out for the next report, but only within a burst: a single change finds a writer that sleeps soonest awake.
constexpr auto kBurst = std::chrono::microseconds(200);
constexpr auto kLinger = std::chrono::microseconds(30);
// A file is read before the first value of a flood comes.
constexpr auto kFloodLinger = std::chrono::milliseconds(5);

} // namespace

Sender::Sender(QObject* parent) : QThread(parent), mExit(ExitFrame.toUtf8()) {}

Sender::~Sender()
{
    requestStop();
    wait();
    mEnded.load();
}

void Sender::begin()
{
    if (isRunning()) {
        return;
    }
    {
        const std::lock_guard lock(mMutex);
        const qsizetype exit = mQueue.lastIndexOf(mExit);
        if (exit >= 0) {
            mQueue.remove(0, exit + 1);
        } else if (mFailed) {
            mQueue.clear();
        }
        mFailed = false;
    }
    mEnded.store(false);
    start(InheritPriority);
}

void Sender::enqueue(QByteArray bytes)
{
    {
        const std::lock_guard lock(mMutex);
        mQueue.append(std::move(bytes));
        mWaiting.store(true, std::memory_order_relaxed);
    }
    // After the lock: a writer that wakes while it is held goes back to sleep for it, twice the way from a control to the device.
    mCondition.notify_one();
}

void Sender::expectFlood(bool expected)
{
    if (!expected) {
        if (mFlood.exchange(false)) {
            mCores.release();
        }
    } else if (mCores.leaveCallersCore()) {
        mFlood.store(true);
    }
}

void Sender::requestStop()
{
    if (isRunning()) {
        enqueue(mExit);
    }
}

bool Sender::waitStopped()
{
    QElapsedTimer total;
    QElapsedTimer sinceProgress;
    total.start();
    sinceProgress.start();
    quint64 written = mWritten.load();
    while (!wait(kPollMs)) {
        if (const quint64 now = mWritten.load(); now != written) {
            written = now;
            sinceProgress.restart();
        }
        if (sinceProgress.elapsed() > kStallMs || total.elapsed() > kDrainMs) {
            return false;
        }
    }
    return mEnded.load();
}

void Sender::leaveBehind(Sender* sender)
{
    sender->mAbandoned.store(true);
    connect(sender, &QThread::finished, sender, &QObject::deleteLater);
    if (sender->isFinished()) {
        sender->deleteLater();
    }
}

void Sender::run()
{
    mCores.adopt();
    {
        QList<QByteArray> batch; // changes places with the queue, so that both keep their memory
        auto lastWrite = std::chrono::steady_clock::time_point();
        for (;;) {
            batch.clear();
            takeAll(batch);
            const bool inBurst = std::chrono::steady_clock::now() - lastWrite < kBurst;
            if (!writeAll(batch)) {
                break;
            }
            if (const bool inFlood = mFlood.load(); inFlood || inBurst) {
                linger(inFlood);
            }
            lastWrite = std::chrono::steady_clock::now();
        }
    }
    mCores.forget();
    mEnded.store(true);
}

/// Looks out for a report that follows at once.
void Sender::linger(bool inFlood) const
{
    const auto end = std::chrono::steady_clock::now() + (inFlood ? kFloodLinger : kLinger);
    while (!mWaiting.load(std::memory_order_relaxed) && mFlood.load(std::memory_order_relaxed) == inFlood &&
           std::chrono::steady_clock::now() < end) {
    }
}

/// Waits for reports and takes all there are: one lock for a burst.
void Sender::takeAll(QList<QByteArray>& batch)
{
    std::unique_lock lock(mMutex);
    mCondition.wait(lock, [this] { return !mQueue.isEmpty(); });
    batch.swap(mQueue);
    mWaiting.store(false, std::memory_order_relaxed);
}

/// False when the thread is to end. What stood behind the end goes back to the queue.
bool Sender::writeAll(QList<QByteArray>& batch)
{
    USBHIDAPI& hid = USBHIDAPI::instance();
    for (qsizetype i = 0; i < batch.size(); ++i) {
        const QByteArray& bytes = std::as_const(batch)[i];
        if (bytes == mExit || mAbandoned.load()) {
            putBack(batch, i + 1);
            return false;
        }
        if (hid.write(reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<int>(bytes.size())) < 0) {
            {
                const std::lock_guard lock(mMutex);
                mFailed = true;
            }
            putBack(batch, i + 1);
            emit sendFailed();
            return false;
        }
        mWritten.fetch_add(1);
    }
    return true;
}

void Sender::putBack(QList<QByteArray>& batch, qsizetype from)
{
    const std::lock_guard lock(mMutex);
    batch.remove(0, from);
    batch.append(std::move(mQueue));
    mQueue = std::move(batch);
}
