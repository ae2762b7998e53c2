#pragma once

#include <memory>

class QSocketNotifier;

namespace quillon
{

/// Turns the system's request to end (log-out, a terminal's Ctrl+C) into an ordinary quit, so that everything is stored first.
/// One object for the life of the event loop, on the GUI thread. Where the platform tells by window messages it does nothing.
class Termination
{
public:
    Termination();
    ~Termination();
    Termination(const Termination&) = delete;
    Termination& operator=(const Termination&) = delete;

private:
    std::unique_ptr<QSocketNotifier> mNotifier;
};

} // namespace quillon
