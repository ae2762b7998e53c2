#pragma once

#include "device/ThreadCores.h"

#include <QByteArray>
#include <QList>
#include <QThread>
#include <atomic>
#include <condition_variable>
#include <mutex>

/// The writer thread: empties one queue into the HID connection, in order, until ExitFrame or a failed write.
/// Lives on the GUI thread, which makes all calls except enqueue (any thread).
class Sender : public QThread
{
    Q_OBJECT
public:
    explicit Sender(QObject* parent = nullptr);
    /// Ends the thread first. Waits for a write under way: call stop before, and leaveBehind where that gives false.
    ~Sender() override;

    /// Starts writing. What an earlier run left unsent is dropped, what was queued since then is kept.
    void begin();
    /// Appends one report, with its report id. Never waits for the device.
    void enqueue(QByteArray bytes);
    /// Whether a flood of reports follows. The thread then keeps off the caller's core, where it would wait for its turn or take
    /// the caller's, and stays awake between two reports for up to 5 ms. No effect where the system has one core for both.
    void expectFlood(bool expected);
    /// Lets the thread end after all that is queued now. No wait.
    void requestStop();
    /// Waits for that end. False when the device has taken nothing for 1.2 s, or not all within 5 s.
    bool waitStopped();
    /// Gives the object up: it drops its queue, ends with the write under way, and is deleted after that.
    static void leaveBehind(Sender* sender);

signals:
    /// A write failed and the thread ends.
    void sendFailed();

protected:
    void run() override;

private:
    void linger(bool inFlood) const;
    void takeAll(QList<QByteArray>& batch);
    bool writeAll(QList<QByteArray>& batch);
    void putBack(QList<QByteArray>& batch, qsizetype from);

    const QByteArray mExit; // its own, since a thread that was left behind may outlast the process-wide text
    QList<QByteArray> mQueue;
    // Of the standard library, because the thread sanitizer sees these and not Qt's own.
    std::mutex mMutex;
    std::condition_variable mCondition;
    std::atomic<bool> mWaiting = false; // whether the queue holds anything; a hint to linger
    std::atomic<bool> mFlood = false;
    quillon::ThreadCores mCores;
    std::atomic<quint64> mWritten = 0; // counts up, to tell a slow device from one that takes nothing
    std::atomic<bool> mAbandoned = false;
    std::atomic<bool> mEnded = true; // the thread's last step, which orders what it did before what follows its end
    bool mFailed = false;            // guarded by mMutex
};
