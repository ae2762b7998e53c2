#pragma once

#include <memory>

namespace quillon
{

/// Keeps a thread off the core of another one for a while. A scheduler likes to wake a thread where the one runs that wakes it,
/// even if the other cores sleep: right for a single message, and wrong for a flood of them.
class ThreadCores
{
public:
    ThreadCores();
    ~ThreadCores();

    /// Makes the calling thread the one. Nothing below moves a thread before.
    void adopt();
    /// The thread ends.
    void forget();

    /// Takes it off the caller's core. False where it may run on no other, or the system can't be told.
    bool leaveCallersCore();
    /// Lets it run wherever it might when it was adopted. From the thread that took it off.
    void release();

private:
    struct Place;
    std::unique_ptr<Place> mPlace;
};

} // namespace quillon
