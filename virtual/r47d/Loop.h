#pragma once
// One thread, one ppoll: descriptors and timers. Sleeps until something is due; never polls in steps.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <poll.h>
#include <vector>

namespace r47
{

/// CLOCK_MONOTONIC in nanoseconds, the clock of all stamps.
std::uint64_t nowNs();

class Loop
{
public:
    using OnReady = std::function<void(short revents)>;
    using OnTimer = std::function<void()>;
    using TimerId = std::uint64_t; // 0 is none

    /// Calls `onReady` whenever one of `events`, or a hang-up, is there. One watch for each descriptor.
    void watch(int fd, short events, OnReady onReady);
    void setEvents(int fd, short events);
    /// May be called from within any callback, also the descriptor's own.
    void unwatch(int fd);

    /// Calls `onTimer` once, at that time.
    TimerId at(std::uint64_t timeNs, OnTimer onTimer);
    /// Forgets a timer; 0 and one that has run are ignored.
    void cancel(TimerId id);

    /// Runs until stop(), or until a signal has set the flag.
    void run(const volatile int& signalFlag);
    void stop() { mStopped = true; }

private:
    struct Watch {
        int fd; // -1 once unwatched
        short events;
        OnReady onReady;
    };

    void wait();
    void runTimers();

    std::vector<std::shared_ptr<Watch>> mWatches;
    std::vector<pollfd> mEntries; // of the current turn
    std::map<std::pair<std::uint64_t, TimerId>, OnTimer> mTimers;
    std::map<TimerId, std::uint64_t> mTimes;
    TimerId mLastTimer = 0;
    bool mStopped = false;
};

} // namespace r47
