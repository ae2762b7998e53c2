#include "update/UpdateThread.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QPointer>
#include <QThread>
#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <semaphore>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr int kMostWaitMs = 3000;

/// Does the tasks, one by one. They cross under a lock of our own, so that a race detector sees how.
class Worker : public QObject
{
    Q_OBJECT
public:
    void add(const std::function<void()>& task)
    {
        {
            const std::lock_guard lock(mMutex);
            mTasks.push_back(task);
        }
        QMetaObject::invokeMethod(this, "doNext", Qt::QueuedConnection);
    }

public slots:
    /// Once the thread is to end, its loop ends here: whoever asked for that did so before it added the task that is left undone.
    void doNext()
    {
        std::function<void()> task;
        {
            const std::lock_guard lock(mMutex);
            task.swap(mTasks.front());
            mTasks.pop_front();
        }
        if (UpdateThread::isStopping()) {
            QThread::currentThread()->quit();
        } else {
            task();
        }
    }

private:
    std::mutex mMutex;
    std::deque<std::function<void()>> mTasks;
};

/// A thread with its worker. Made when its event loop stands.
class Running : public QThread
{
public:
    Running()
    {
        setObjectName(u"updates"_s);
        start(QThread::InheritPriority);
        mStarted.acquire();
        mWorker.moveToThread(this);
    }
    Worker& worker() { return mWorker; }
    /// Deleted with the thread's end, by the thread.
    void adopt(QObject& object)
    {
        object.moveToThread(this);
        mAdopted.emplace_back(&object);
    }
    /// Waits for the end; false when it does not come in time.
    bool waitEnded(int milliseconds) { return wait(QDeadlineTimer(milliseconds)) && mEnded.load(); }

protected:
    void run() override
    {
        mStarted.release();
        exec();
        for (const QPointer<QObject>& object : mAdopted) {
            delete object;
        }
        mEnded.store(true); // orders what the thread did before what follows its end
    }

private:
    std::binary_semaphore mStarted{0};
    std::atomic<bool> mEnded = false;
    std::vector<QPointer<QObject>> mAdopted; // some are deleted before
    Worker mWorker;
};

std::mutex gMutex;
Running* gRunning = nullptr; // guarded by gMutex

} // namespace

void UpdateThread::adopt(QObject& object)
{
    const std::lock_guard lock(gMutex);
    if (gRunning == nullptr) {
        gRunning = new Running;
        [[maybe_unused]] static const bool stopsWithTheApplication = [] {
            qAddPostRoutine(&UpdateThread::stop);
            return true;
        }();
    }
    gRunning->adopt(object);
}

bool UpdateThread::post(const std::function<void()>& task)
{
    const std::lock_guard lock(gMutex);
    if (gRunning != nullptr) {
        gRunning->worker().add(task);
    }
    return gRunning != nullptr;
}

void UpdateThread::stop()
{
    Running* running = nullptr;
    {
        const std::lock_guard lock(gMutex);
        running = std::exchange(gRunning, nullptr);
    }
    if (running == nullptr) {
        return;
    }
    running->requestInterruption();
    running->worker().add([] {});
    if (running->waitEnded(kMostWaitMs)) {
        delete running;
    }
}

bool UpdateThread::isRunning()
{
    const std::lock_guard lock(gMutex);
    return gRunning != nullptr;
}

bool UpdateThread::isStopping()
{
    return QThread::currentThread()->isInterruptionRequested();
}

} // namespace quillon

#include "UpdateThread.moc"
