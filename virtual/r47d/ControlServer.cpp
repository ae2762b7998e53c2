#include "virtual/r47d/ControlServer.h"

#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

namespace r47
{

namespace
{

constexpr std::size_t kMaxLine = 4096;
constexpr std::size_t kMaxWaiting = 1u << 20; // lines sent ahead of their answers; more is a runaway client

} // namespace

ControlServer::ControlServer(Loop& loop, std::string folder, OnCommand onCommand)
    : mLoop(loop), mFolder(std::move(folder)), mOnCommand(std::move(onCommand))
{
}

ControlServer::~ControlServer()
{
    if (mListener)
        ::unlink((mFolder + '/' + kControlSocket).c_str());
}

bool ControlServer::open()
{
    mListener = listenAt(mFolder, kControlSocket, SOCK_STREAM);
    if (mListener)
        mLoop.watch(mListener.get(), POLLIN, [this](short) { accept(); });
    return bool(mListener);
}

void ControlServer::accept()
{
    while (Fd fd{::accept4(mListener.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC)}) {
        auto connection = std::make_shared<Connection>();
        connection->fd = std::move(fd);
        mConnections.push_back(connection);
        mLoop.watch(connection->fd.get(), POLLIN, [this, weak = std::weak_ptr(connection)](short revents) {
            if (const auto held = weak.lock())
                serve(held, revents);
        });
    }
}

void ControlServer::drop(const std::shared_ptr<Connection>& connection)
{
    if (!connection->fd)
        return;
    mLoop.unwatch(connection->fd.get());
    connection->fd.reset();
    mConnections.remove(connection);
}

void ControlServer::receive(Connection& connection)
{
    char buffer[4096];
    for (;;) {
        const auto got = ::recv(connection.fd.get(), buffer, sizeof buffer, 0);
        if (got > 0 && connection.in.size() < kMaxWaiting) {
            connection.in.append(buffer, std::size_t(got));
            continue;
        }
        if (got >= 0 || (errno != EAGAIN && errno != EINTR))
            connection.ended = true;
        return;
    }
}

void ControlServer::serve(const std::shared_ptr<Connection>& connection, short revents)
{
    if (revents & (POLLIN | POLLHUP | POLLERR))
        receive(*connection);
    proceed(connection);
    // After a hang-up nobody reads the answers; a half-closed connection still gets those of its lines.
    if (revents & (POLLHUP | POLLERR))
        drop(connection);
    else if (connection->fd)
        send(connection);
}

void ControlServer::proceed(const std::shared_ptr<Connection>& connection)
{
    while (connection->fd && !connection->busy) {
        const auto stop = connection->in.find('\n');
        if (stop == std::string::npos) {
            if (connection->in.size() > kMaxLine)
                drop(connection);
            return;
        }
        std::string line = connection->in.substr(0, stop);
        connection->in.erase(0, stop + 1);
        if (line.ends_with('\r'))
            line.pop_back();
        connection->busy = true;
        mOnCommand(line, [this, weak = std::weak_ptr(connection)](std::string text) {
            const auto held = weak.lock();
            if (!held || !held->fd || !held->busy)
                return;
            held->busy = false;
            held->out += text + '\n';
            send(held);
            // What came behind it goes on from the loop, so that an answer given at once does not nest.
            if (held->fd && held->in.find('\n') != std::string::npos)
                mLoop.at(0, [this, weak] {
                    if (const auto still = weak.lock(); still && still->fd)
                        proceed(still);
                });
        });
    }
}

void ControlServer::send(const std::shared_ptr<Connection>& connection)
{
    std::string& out = connection->out;
    std::size_t& done = connection->sent;
    while (done < out.size()) {
        const auto sent = ::send(connection->fd.get(), out.data() + done, out.size() - done, MSG_NOSIGNAL);
        if (sent > 0)
            done += std::size_t(sent);
        else if (errno == EAGAIN)
            break;
        else if (errno != EINTR) {
            drop(connection);
            return;
        }
    }
    if (done == out.size()) {
        out.clear();
        done = 0;
    }
    if (connection->ended && out.empty() && !connection->busy && connection->in.find('\n') == std::string::npos) {
        drop(connection);
        return;
    }
    const short in = connection->ended ? short(0) : short(POLLIN);
    mLoop.setEvents(connection->fd.get(), short(in | (out.empty() ? 0 : POLLOUT)));
}

} // namespace r47
