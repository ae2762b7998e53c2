#pragma once
// Local sockets of the virtual R47: where its folder is, and listening and connecting there. POSIX only, no Qt, no exceptions:
// the drop-in libraries use it inside a program that knows nothing of it.

#include <string>
#include <utility>

namespace r47
{

/// A file descriptor that closes itself.
class Fd
{
public:
    Fd() = default;
    explicit Fd(int fd) : mFd(fd) {}
    Fd(Fd&& other) noexcept : mFd(std::exchange(other.mFd, -1)) {}
    Fd& operator=(Fd&& other) noexcept
    {
        std::swap(mFd, other.mFd);
        return *this;
    }
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    ~Fd() { reset(); }

    int get() const { return mFd; }
    explicit operator bool() const { return mFd >= 0; }
    void reset();

private:
    int mFd = -1;
};

/// The three doors of the device. The first two are message sockets (one packet, one report or one call), the last a line stream.
inline constexpr const char* kHidSocket = "hid";
inline constexpr const char* kDriverSocket = "driver";
inline constexpr const char* kControlSocket = "ctl";

/// The folder of the sockets: $R47_DIR, else $XDG_RUNTIME_DIR/r47, else empty.
std::string defaultFolder();

/// A non-blocking listener at folder/name, for this user only; an abandoned socket file is replaced. No descriptor on failure
/// (also when the path is longer than 100 bytes), errno tells why.
Fd listenAt(const std::string& folder, const char* name, int type);

/// A connection to folder/name; never waits: a full or absent listener is a failure. The descriptor is non-blocking.
Fd connectTo(const std::string& folder, const char* name, int type);

/// Waits until `events` or a hang-up is there; false when `timeoutMs` (-1: for ever) passed. Restarted after signals.
bool waitFor(int fd, short events, int timeoutMs);

} // namespace r47
