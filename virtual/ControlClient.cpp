#include "virtual/ControlClient.h"

#include <cerrno>
#include <chrono>
#include <poll.h>
#include <sys/socket.h>
#include <thread>

namespace r47
{

namespace
{

using Clock = std::chrono::steady_clock;

int msLeft(Clock::time_point end)
{
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    return left > 0 ? int(left) : 0;
}

Reply parse(std::string line)
{
    const auto blank = line.find(' ');
    const std::string word = line.substr(0, blank);
    std::string rest = blank == std::string::npos ? std::string() : line.substr(blank + 1);
    const auto status = word == "ok" ? Reply::Status::Done : word == "usage" ? Reply::Status::Usage : Reply::Status::Refused;
    return {status, std::move(rest)};
}

bool sendAll(int fd, std::string_view bytes, Clock::time_point end)
{
    while (!bytes.empty()) {
        const auto sent = ::send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent > 0)
            bytes.remove_prefix(std::size_t(sent));
        else if (errno == EAGAIN ? !waitFor(fd, POLLOUT, msLeft(end)) : errno != EINTR)
            return false;
    }
    return true;
}

} // namespace

ControlClient::ControlClient(std::string folder, int timeoutMs)
{
    // The one place that looks again and again: a process that is just starting has nothing yet that could wake us.
    const auto end = Clock::now() + std::chrono::milliseconds(timeoutMs);
    while (!(mFd = connectTo(folder, kControlSocket, SOCK_STREAM)) && msLeft(end) > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

Reply ControlClient::command(std::string_view line, int timeoutMs)
{
    const auto end = Clock::now() + std::chrono::milliseconds(timeoutMs);
    if (!mFd)
        return {Reply::Status::NoDevice, "no r47d"};
    if (sendAll(mFd.get(), std::string(line) + '\n', end)) {
        for (;;) {
            if (const auto stop = mPending.find('\n'); stop != std::string::npos) {
                Reply reply = parse(mPending.substr(0, stop));
                mPending.erase(0, stop + 1);
                return reply;
            }
            char buffer[65536];
            const auto got = ::recv(mFd.get(), buffer, sizeof buffer, 0);
            if (got > 0)
                mPending.append(buffer, std::size_t(got));
            else if (got == 0 || (errno == EAGAIN ? !waitFor(mFd.get(), POLLIN, msLeft(end)) : errno != EINTR))
                break;
        }
    }
    mFd.reset();
    return {Reply::Status::NoDevice, "no answer from r47d"};
}

bool ControlClient::waitForEnd(int timeoutMs)
{
    const auto end = Clock::now() + std::chrono::milliseconds(timeoutMs);
    while (mFd) {
        char buffer[4096];
        const auto got = ::recv(mFd.get(), buffer, sizeof buffer, 0);
        if (got == 0 || (got < 0 && errno != EAGAIN && errno != EINTR))
            mFd.reset();
        else if (got < 0 && !waitFor(mFd.get(), POLLIN, msLeft(end)))
            return false;
    }
    return true;
}

} // namespace r47
