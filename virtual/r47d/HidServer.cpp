#include "virtual/r47d/HidServer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <sys/socket.h>
#include <unistd.h>

namespace r47
{

namespace
{

constexpr std::size_t kMaxMeters = 1024;  // queued for one slow reader; beyond that the oldest meters go
constexpr std::size_t kMaxQueued = 65536; // a reader that is this far behind has stopped: its handle ends
constexpr std::size_t kMaxKept = 64;      // for a handle that does not read yet
constexpr std::size_t kMaxReport = 64;
constexpr std::int64_t kOldestNs = 60'000'000'000; // an older note means that the clock of the day was set
constexpr std::size_t kReadsPerTurn = 256;         // so that one writer does not keep the others waiting
constexpr std::size_t kBurst = 64;

struct Received {
    ssize_t size; // as recv gives it
    std::uint64_t timeNs;
};

std::int64_t clockNs(clockid_t clock)
{
    timespec time{};
    ::clock_gettime(clock, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

/// One report, and when it came into the device's queue. The system notes that time, on its clock of the day: how long this process
/// takes to be woken is nothing that a device has.
Received receive(int fd, std::span<std::uint8_t> buffer)
{
    iovec part{buffer.data(), buffer.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(timespec))> notes;
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = notes.data();
    message.msg_controllen = notes.size();
    const ssize_t got = ::recvmsg(fd, &message, 0);
    const std::uint64_t now = nowNs();
    const cmsghdr* note = got > 0 ? CMSG_FIRSTHDR(&message) : nullptr;
    if (!note || note->cmsg_level != SOL_SOCKET || note->cmsg_type != SCM_TIMESTAMPNS)
        return {got, now}; // what came before the handle was accepted has no note
    timespec came{};
    std::memcpy(&came, CMSG_DATA(note), sizeof came);
    const std::int64_t ago = clockNs(CLOCK_REALTIME) - (came.tv_sec * 1'000'000'000LL + came.tv_nsec);
    return {got, ago > 0 && ago < kOldestNs ? now - std::uint64_t(ago) : now};
}

} // namespace

HidServer::HidServer(Loop& loop, std::string folder, OnWrite onWrite)
    : mLoop(loop), mFolder(std::move(folder)), mOnWrite(std::move(onWrite))
{
}

bool HidServer::open()
{
    if (mListener)
        return true;
    mListener = listenAt(mFolder, kHidSocket, SOCK_SEQPACKET);
    if (!mListener)
        return false;
    mLoop.watch(mListener.get(), POLLIN, [this](short) { accept(); });
    return true;
}

void HidServer::close()
{
    if (!mListener)
        return;
    mLoop.unwatch(mListener.get());
    ::unlink((mFolder + '/' + kHidSocket).c_str());
    mListener.reset();
    while (!mHandles.empty())
        drop(mHandles.back());
}

void HidServer::setStalled(bool stalled)
{
    mStalled = stalled;
    for (const auto& handle : mHandles)
        updateEvents(*handle);
}

void HidServer::accept()
{
    for (;;) {
        Fd fd(::accept4(mListener.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!fd)
            return;
        const int on = 1;
        ::setsockopt(fd.get(), SOL_SOCKET, SO_TIMESTAMPNS, &on, sizeof on);
        auto handle = std::make_shared<Handle>();
        handle->fd = std::move(fd);
        mHandles.push_back(handle);
        mLoop.watch(handle->fd.get(), 0, [this, handle](short revents) { serve(handle, revents); });
        updateEvents(*handle);
    }
}

void HidServer::updateEvents(const Handle& handle)
{
    const bool pending = handle.reader && !handle.queue.empty();
    mLoop.setEvents(handle.fd.get(), short((mStalled ? 0 : POLLIN) | (pending ? POLLOUT : 0)));
}

void HidServer::drop(std::shared_ptr<Handle> handle) // by value: the caller's may be the list's own
{
    mLoop.unwatch(handle->fd.get());
    std::erase(mHandles, handle);
    handle->fd.reset();
}

void HidServer::serve(const std::shared_ptr<Handle>& handle, short revents)
{
    // While the device does not read, a peer that has gone shows only as a hang-up.
    bool alive = !(mStalled && (revents & (POLLHUP | POLLERR)));
    if (alive && !mStalled && (revents & (POLLIN | POLLHUP | POLLERR)))
        alive = readFrom(*handle);
    if (alive && handle->fd && (revents & POLLOUT))
        alive = flush(*handle);
    if (!handle->fd)
        return; // ended by what it wrote, an unplug
    if (alive)
        updateEvents(*handle);
    else
        drop(handle);
}

bool HidServer::readFrom(Handle& handle)
{
    std::array<std::uint8_t, kMaxReport + 1> buffer;
    for (std::size_t turn = 0; turn < kReadsPerTurn && handle.fd && !mStalled; ++turn) {
        const auto [got, time] = receive(handle.fd.get(), buffer);
        if (got < 0)
            return errno == EAGAIN || errno == EINTR;
        if (got == 0)
            return false;
        if (got == 1 && buffer[0] == kReaderMark) {
            handle.announced = handle.reader = true; // what was kept goes out with the next turn
            continue;
        }
        if (handle.reader && !handle.announced) {
            handle.reader = false;
            handle.queue.clear();
            handle.queuedMeters = 0;
        }
        mOnWrite(std::span(buffer).first(std::size_t(got)), time);
    }
    return true;
}

bool HidServer::flush(Handle& handle)
{
    while (!handle.queue.empty()) {
        const Queued& next = handle.queue.front();
        if (::send(handle.fd.get(), next.bytes.data(), next.bytes.size(), MSG_NOSIGNAL) < 0)
            return errno == EAGAIN || errno == EINTR;
        handle.queuedMeters -= next.kind == ReportKind::Meter;
        handle.queue.pop_front();
    }
    return true;
}

void HidServer::keep(Handle& handle, std::span<const std::uint8_t> report)
{
    if (handle.queue.size() >= kMaxKept)
        handle.queue.pop_front();
    handle.queue.push_back({{report.begin(), report.end()}, ReportKind::Parameter});
}

bool HidServer::enqueue(Handle& handle, std::span<const std::uint8_t> report, ReportKind kind)
{
    if (handle.queue.size() >= kMaxQueued)
        return false;
    if (kind == ReportKind::Meter && handle.queuedMeters >= kMaxMeters) {
        const auto oldest = std::find_if(handle.queue.begin(), handle.queue.end(),
                                         [](const Queued& queued) { return queued.kind == ReportKind::Meter; });
        handle.queue.erase(oldest);
        --handle.queuedMeters;
        ++mDroppedMeters;
    }
    handle.queue.push_back({{report.begin(), report.end()}, kind});
    handle.queuedMeters += kind == ReportKind::Meter;
    return true;
}

bool HidServer::deliver(Handle& handle, std::span<const quillon::Report> reports, ReportKind kind)
{
    std::size_t done = 0;
    while (handle.queue.empty() && done < reports.size()) {
        std::array<iovec, kBurst> parts{};
        std::array<mmsghdr, kBurst> messages{};
        const std::size_t count = std::min(reports.size() - done, kBurst);
        for (std::size_t i = 0; i < count; ++i) {
            parts[i] = {const_cast<std::uint8_t*>(reports[done + i].data()), quillon::kReportSize};
            messages[i].msg_hdr.msg_iov = &parts[i];
            messages[i].msg_hdr.msg_iovlen = 1;
        }
        const int sent = ::sendmmsg(handle.fd.get(), messages.data(), unsigned(count), MSG_NOSIGNAL);
        if (sent < 0 && errno != EAGAIN && errno != EINTR)
            return false;
        if (sent <= 0)
            break;
        done += std::size_t(sent);
    }
    for (; done < reports.size(); ++done)
        if (!enqueue(handle, reports[done], kind))
            return false;
    return true;
}

template<typename Deliver> std::size_t HidServer::toAll(Deliver deliver)
{
    const auto handles = mHandles; // a handle that does not take its reports leaves the list on the way
    for (const auto& handle : handles) {
        if (deliver(*handle))
            updateEvents(*handle);
        else
            drop(handle);
    }
    return handles.size();
}

std::size_t HidServer::send(std::span<const std::uint8_t> report, ReportKind kind)
{
    return toAll([&](Handle& handle) {
        if (!handle.reader) {
            keep(handle, report);
            return true;
        }
        if (handle.queue.empty() && ::send(handle.fd.get(), report.data(), report.size(), MSG_NOSIGNAL) >= 0)
            return true;
        return (!handle.queue.empty() || errno == EAGAIN || errno == EINTR) && enqueue(handle, report, kind);
    });
}

std::size_t HidServer::sendBurst(std::span<const quillon::Report> reports, ReportKind kind)
{
    return toAll([&](Handle& handle) {
        if (handle.reader)
            return deliver(handle, reports, kind);
        for (const quillon::Report& report : reports)
            keep(handle, report);
        return true;
    });
}

std::size_t HidServer::readerCount() const
{
    return std::size_t(std::count_if(mHandles.begin(), mHandles.end(), [](const auto& handle) { return handle->reader; }));
}

std::size_t HidServer::backlog() const
{
    std::size_t longest = 0;
    for (const auto& handle : mHandles)
        if (handle->reader)
            longest = std::max(longest, handle->queue.size());
    return longest;
}

} // namespace r47
