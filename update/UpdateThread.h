#pragma once

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
    /// Interrupts what it does and waits for its end. A thread that is held up inside the driver is left behind after 3 s. GUI
    /// thread.
    static void stop();
    /// Whether there is such a thread, so that something posted to it will be done. Any thread.
    static bool isRunning();
    /// Whether the work at hand is to be left at once. On the thread itself.
    static bool isStopping();
};

} // namespace quillon
