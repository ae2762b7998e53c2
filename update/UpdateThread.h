#pragma once

#include <functional>

class QObject;

namespace quillon
{

/// The one thread on which all updaters live and work.
class UpdateThread
{
public:
    /// Moves an object there, which is deleted there when the thread ends. The first call starts the thread; the end of the
    /// application object stops it. GUI thread.
    static void adopt(QObject& object);
    /// Has something done there, after what was posted before. False, and nothing is done, when there is no such thread. Any
    /// thread.
    static bool post(const std::function<void()>& task);
    /// Interrupts what it does and waits for its end. A thread that is held up inside the driver is left behind after 3 s. GUI
    /// thread.
    static void stop();
    /// Any thread.
    static bool isRunning();
    /// Whether the work at hand is to be left at once. On the thread itself.
    static bool isStopping();
};

} // namespace quillon
