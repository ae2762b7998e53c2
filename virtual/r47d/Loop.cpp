#include "virtual/r47d/Loop.h"

#include <csignal>
#include <ctime>

namespace r47
{

std::uint64_t nowNs()
{
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return std::uint64_t(time.tv_sec) * 1'000'000'000u + std::uint64_t(time.tv_nsec);
}

void Loop::watch(int fd, short events, OnReady onReady)
{
    mWatches.push_back(std::make_shared<Watch>(Watch{fd, events, std::move(onReady)}));
}

void Loop::setEvents(int fd, short events)
{
    for (const auto& entry : mWatches)
        if (entry->fd == fd)
            entry->events = events;
}

void Loop::unwatch(int fd)
{
    for (const auto& entry : mWatches)
        if (entry->fd == fd)
            entry->fd = -1;
}

Loop::TimerId Loop::at(std::uint64_t timeNs, OnTimer onTimer)
{
    const TimerId id = ++mLastTimer;
    mTimers.emplace(std::pair(timeNs, id), std::move(onTimer));
    mTimes.emplace(id, timeNs);
    return id;
}

void Loop::cancel(TimerId id)
{
    const auto found = mTimes.find(id);
    if (found == mTimes.end())
        return;
    mTimers.erase({found->second, id});
    mTimes.erase(found);
}

void Loop::runTimers()
{
    // Only what is due now: a timer that is set again from its own callback waits for the next turn.
    const std::uint64_t now = nowNs();
    const TimerId last = mLastTimer;
    for (auto next = mTimers.begin(); next != mTimers.end() && next->first.first <= now && !mStopped;) {
        if (next->first.second > last) {
            ++next;
            continue;
        }
        const OnTimer onTimer = std::move(next->second);
        mTimes.erase(next->first.second);
        mTimers.erase(next);
        onTimer();
        next = mTimers.begin();
    }
}

void Loop::wait()
{
    std::erase_if(mWatches, [](const auto& entry) { return entry->fd < 0; });
    mEntries.clear();
    for (const auto& entry : mWatches)
        mEntries.push_back({entry->fd, entry->events, 0});
    timespec timeout{};
    const timespec* limit = nullptr;
    if (!mTimers.empty()) {
        const std::uint64_t due = mTimers.begin()->first.first;
        const std::uint64_t now = nowNs();
        const std::uint64_t left = due > now ? due - now : 0;
        timeout.tv_sec = time_t(left / 1'000'000'000u);
        timeout.tv_nsec = long(left % 1'000'000'000u);
        limit = &timeout;
    }
    // Termination signals are let in only while waiting, so none falls between the test of the flag and the sleep.
    sigset_t open;
    sigemptyset(&open);
    if (::ppoll(mEntries.data(), mEntries.size(), limit, &open) <= 0)
        return;
    for (std::size_t i = 0; i < mEntries.size(); ++i) {
        const auto entry = mWatches[i]; // new watches go behind, so the order stands during the turn
        if (mEntries[i].revents && entry->fd >= 0)
            entry->onReady(mEntries[i].revents);
    }
}

void Loop::run(const volatile int& signalFlag)
{
    while (!mStopped && !signalFlag) {
        wait();
        runTimers();
    }
}

} // namespace r47
