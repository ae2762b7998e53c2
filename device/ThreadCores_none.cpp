#include "device/ThreadCores.h"

namespace quillon
{

struct ThreadCores::Place {
};

void ThreadCores::adopt() {}

void ThreadCores::forget() {}

bool ThreadCores::leaveCallersCore()
{
    return false;
}

void ThreadCores::release() {}

ThreadCores::ThreadCores() = default;

ThreadCores::~ThreadCores() = default;

} // namespace quillon
