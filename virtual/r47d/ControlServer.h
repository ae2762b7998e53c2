#pragma once
// The control door: lines in, one line back for each, in their order. A command that takes time holds back only its own connection.

#include "virtual/Socket.h"
#include "virtual/r47d/Loop.h"

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>

namespace r47
{

/// Gives the answer of a command, once, now or later; a connection that has gone ignores it. Without a line break.
using Answer = std::function<void(std::string)>;

class ControlServer
{
public:
    using OnCommand = std::function<void(std::string_view line, Answer answer)>;

    ControlServer(Loop& loop, std::string folder, OnCommand onCommand);
    ~ControlServer();

    bool open();

private:
    struct Connection {
        Fd fd;
        std::string in;
        std::string out;
        std::size_t sent = 0; // bytes of `out` that are gone
        bool busy = false;    // a command is under way
        bool ended = false;   // the other side sends no more
    };

    void accept();
    void serve(const std::shared_ptr<Connection>& connection, short revents);
    void receive(Connection& connection);
    void proceed(const std::shared_ptr<Connection>& connection);
    void send(const std::shared_ptr<Connection>& connection);
    void drop(const std::shared_ptr<Connection>& connection);

    Loop& mLoop;
    std::string mFolder;
    OnCommand mOnCommand;
    Fd mListener;
    std::list<std::shared_ptr<Connection>> mConnections;
};

} // namespace r47
