#pragma once
// Speaks to a running r47d: one line of text out, one line back. Standard library only, so that tests, benches and r47ctl share it.
// docs/VIRTUAL_R47.md lists the commands.

#include "virtual/Socket.h"

#include <string>
#include <string_view>

namespace r47
{

/// The answer to one command. `text` is what follows the first word of the line: a number, JSON, or a reason.
struct Reply {
    enum class Status { Done, Refused, Usage, NoDevice };
    Status status = Status::NoDevice;
    std::string text;

    explicit operator bool() const { return status == Status::Done; }
};

/// One connection to the control socket. Not for use by two threads at once.
class ControlClient
{
public:
    /// Connects to the r47d of that folder, waiting up to `timeoutMs` for it to appear.
    explicit ControlClient(std::string folder = defaultFolder(), int timeoutMs = 0);

    bool isConnected() const { return bool(mFd); }

    /// Sends one command ("panel Input_IN1 MUTE 1") and waits for its answer, at most `timeoutMs`. When the call returns Done the
    /// effect is there. NoDevice when there is no connection, it broke, or the time is up (the connection is then closed).
    Reply command(std::string_view line, int timeoutMs = 60000);

    /// Waits until the other side has closed (after "quit"); false when the time is up.
    bool waitForEnd(int timeoutMs);

private:
    Fd mFd;
    std::string mPending; // bytes after the last complete line
};

} // namespace r47
