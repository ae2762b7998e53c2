#include "update/UpdateThread.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <atomic>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr int kMostWaitMs = 3000;

std::atomic<QThread*> gThread = nullptr;

} // namespace

void UpdateThread::adopt(QObject& object)
{
    QThread* thread = gThread;
    if (thread == nullptr) {
        thread = new QThread;
        thread->setObjectName(u"updates"_s);
        thread->start(QThread::InheritPriority);
        gThread = thread;
        [[maybe_unused]] static const bool stopsWithTheApplication = [] {
            qAddPostRoutine(&UpdateThread::stop);
            return true;
        }();
    }
    object.moveToThread(thread);
    QObject::connect(thread, &QThread::finished, &object, &QObject::deleteLater);
}

void UpdateThread::stop()
{
    QThread* thread = gThread.exchange(nullptr);
    if (thread == nullptr) {
        return;
    }
    thread->requestInterruption();
    thread->quit();
    if (thread->wait(QDeadlineTimer(kMostWaitMs))) {
        delete thread;
    }
}

bool UpdateThread::isRunning()
{
    return gThread != nullptr;
}

bool UpdateThread::isStopping()
{
    return QThread::currentThread()->isInterruptionRequested();
}

} // namespace quillon
