#include "virtual/Socket.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace r47
{

namespace
{

constexpr std::size_t kMaxPath = 100; // below the 108 of the kernel, so that a longer sibling name never fails alone

bool fillAddress(sockaddr_un& address, const std::string& folder, const char* name)
{
    const std::string path = folder + '/' + name;
    if (folder.empty() || path.size() > kMaxPath) {
        errno = folder.empty() ? ENOENT : ENAMETOOLONG;
        return false;
    }
    address = {};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return true;
}

} // namespace

void Fd::reset()
{
    if (mFd >= 0)
        ::close(std::exchange(mFd, -1));
}

std::string defaultFolder()
{
    if (const char* folder = std::getenv("R47_DIR"); folder && *folder)
        return folder;
    if (const char* runtime = std::getenv("XDG_RUNTIME_DIR"); runtime && *runtime)
        return std::string(runtime) + "/r47";
    return {};
}

Fd listenAt(const std::string& folder, const char* name, int type)
{
    sockaddr_un address;
    if (!fillAddress(address, folder, name))
        return {};
    Fd fd(::socket(AF_UNIX, type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!fd)
        return {};
    ::unlink(address.sun_path);
    const mode_t before = ::umask(0177);
    const bool bound = ::bind(fd.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::umask(before);
    if (!bound || ::listen(fd.get(), 64) != 0)
        return {};
    return fd;
}

Fd connectTo(const std::string& folder, const char* name, int type)
{
    sockaddr_un address;
    if (!fillAddress(address, folder, name))
        return {};
    Fd fd(::socket(AF_UNIX, type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!fd || ::connect(fd.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return {};
    return fd;
}

bool waitFor(int fd, short events, int timeoutMs)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(timeoutMs);
    for (;;) {
        pollfd entry{fd, events, 0};
        int left = -1;
        if (timeoutMs >= 0) {
            const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
            left = rest > 0 ? int(rest) : 0;
        }
        const int ready = ::poll(&entry, 1, left);
        if (ready > 0)
            return true;
        if (ready == 0 || errno != EINTR)
            return false;
    }
}

} // namespace r47
