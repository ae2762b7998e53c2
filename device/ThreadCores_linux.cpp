#include "device/ThreadCores.h"

#include <atomic>
#include <sched.h>
#include <unistd.h>

namespace quillon
{

struct ThreadCores::Place {
    cpu_set_t allowed; // written before the id is
    std::atomic<pid_t> thread = 0;
};

void ThreadCores::adopt()
{
    const pid_t self = ::gettid();
    if (::sched_getaffinity(self, sizeof mPlace->allowed, &mPlace->allowed) == 0) {
        mPlace->thread.store(self, std::memory_order_release);
    }
}

void ThreadCores::forget()
{
    mPlace->thread.store(0, std::memory_order_relaxed);
}

bool ThreadCores::leaveCallersCore()
{
    const pid_t thread = mPlace->thread.load(std::memory_order_acquire);
    const int core = ::sched_getcpu();
    if (thread == 0 || core < 0 || core >= CPU_SETSIZE) {
        return false;
    }
    cpu_set_t others = mPlace->allowed;
    CPU_CLR(core, &others);
    return CPU_COUNT(&others) > 0 && ::sched_setaffinity(thread, sizeof others, &others) == 0;
}

void ThreadCores::release()
{
    if (const pid_t thread = mPlace->thread.load(std::memory_order_acquire); thread != 0) {
        ::sched_setaffinity(thread, sizeof mPlace->allowed, &mPlace->allowed);
    }
}

ThreadCores::ThreadCores() : mPlace(std::make_unique<Place>()) {}

ThreadCores::~ThreadCores() = default;

} // namespace quillon
