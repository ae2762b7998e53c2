#include "virtual/driver/DriverChannel.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <poll.h>
#include <string>
#include <sys/socket.h>

namespace r47
{

namespace
{

using Clock = std::chrono::steady_clock;
constexpr auto kLimit = std::chrono::milliseconds(200);

bool parse(std::string_view text, std::vector<std::uint64_t>& numbers)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at < end) {
        std::uint64_t number = 0;
        const auto [next, error] = std::from_chars(at, end, number);
        if (error != std::errc())
            return false;
        numbers.push_back(number);
        at = next + (next < end);
    }
    return !numbers.empty();
}

/// Sends the request and takes its answer; false when either fails or the time is up.
bool exchange(int fd, const std::string& request, std::vector<std::uint64_t>& answer, Clock::time_point end)
{
    if (::send(fd, request.data(), request.size(), MSG_NOSIGNAL) < 0)
        return false;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    char buffer[1024];
    if (left <= 0 || !waitFor(fd, POLLIN, int(left)))
        return false;
    const auto got = ::recv(fd, buffer, sizeof buffer, 0);
    return got > 0 && parse(std::string_view(buffer, std::size_t(got)), answer);
}

} // namespace

std::uint64_t DriverChannel::call(std::string_view name, std::initializer_list<std::uint64_t> arguments,
                                  std::vector<std::uint64_t>& results)
{
    results.clear();
    const auto end = Clock::now() + kLimit;
    std::string request(name);
    for (const std::uint64_t argument : arguments)
        request += ' ' + std::to_string(argument);
    // A connection that was kept may belong to an r47d that has ended since: then one new one is tried.
    for (const bool kept : {bool(mFd), false}) {
        if (!kept)
            mFd = connectTo(defaultFolder(), kDriverSocket, SOCK_SEQPACKET);
        if (mFd && exchange(mFd.get(), request, results, end)) {
            const std::uint64_t status = results.front();
            results.erase(results.begin());
            return status;
        }
        mFd.reset();
        results.clear();
        if (!kept)
            break;
    }
    return kNoDevice;
}

} // namespace r47
