#pragma once
// The way from the driver library to r47d: one call, one packet each way, at most 200 ms in all. One for each thread, so that none
// waits for another's call.

#include "virtual/Socket.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace r47
{

class DriverChannel
{
public:
    static constexpr std::uint64_t kNoDevice = 1; // also the status when r47d is absent or does not answer in time

    /// Calls `name` with these numbers. Returns the status, 0 for success; `results` takes what follows it.
    std::uint64_t call(std::string_view name, std::initializer_list<std::uint64_t> arguments, std::vector<std::uint64_t>& results);

private:
    Fd mFd; // kept from call to call; closed after a failure, so that a late answer is never taken for another's
};

} // namespace r47
