#include "update/UpdateThread.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <deque>
#include <memory>
#include <mutex>
#include <semaphore>
#include <utility>

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
    void doNext()
    {
        std::function<void()> task;
        {
            const std::lock_guard lock(mMutex);
            task.swap(mTasks.front());
            mTasks.pop_front();
        }
        task();
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

protected:
    void run() override
    {
        mStarted.release();
        exec();
    }

private:
    std::binary_semaphore mStarted{0};
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
    object.moveToThread(gRunning);
    QObject::connect(gRunning, &QThread::finished, &object, &QObject::deleteLater);
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
    running->quit();
    if (running->wait(QDeadlineTimer(kMostWaitMs))) {
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
