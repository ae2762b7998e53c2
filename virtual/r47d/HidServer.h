#pragma once
// The HID door: as many handles as connect, one packet for each report.
//
// A handle is sent input reports from its connection until its first write, or for good once it has announced itself as a reader
// (a packet of the one byte kReaderMark). So the write handle of a program that opens the device twice does not fill up. For a
// handle that has only written so far the last reports are kept, as a kernel would: it may be about to read their answer.

#include "device/Frame.h"
#include "virtual/Socket.h"
#include "virtual/r47d/Loop.h"

#include <deque>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace r47
{

inline constexpr std::uint8_t kReaderMark = 0xFF;

/// What is lost first when a reader is slow.
enum class ReportKind { Parameter, Meter };

class HidServer
{
public:
    /// One written report and the time it was taken from the wire.
    using OnWrite = std::function<void(std::span<const std::uint8_t>, std::uint64_t timeNs)>;

    HidServer(Loop& loop, std::string folder, OnWrite onWrite);
    ~HidServer() { close(); }

    /// Shows the interface; false when the socket can not be made.
    bool open();
    /// Takes the interface away: all handles end at once.
    void close();
    bool isOpen() const { return bool(mListener); }

    /// Stops or resumes taking what is written.
    void setStalled(bool stalled);

    /// Sends one report (at most 64 bytes) to all readers and keeps it for the others; the number of handles.
    std::size_t send(std::span<const std::uint8_t> report, ReportKind kind);
    /// The same for a burst of whole reports, with one system call for each reader.
    std::size_t sendBurst(std::span<const quillon::Report> reports, ReportKind kind);

    std::size_t handleCount() const { return mHandles.size(); }
    std::size_t readerCount() const;
    /// The longest queue of a reader.
    std::size_t backlog() const;
    std::uint64_t droppedMeters() const { return mDroppedMeters; }
    void clearCounters() { mDroppedMeters = 0; }

private:
    struct Queued {
        std::vector<std::uint8_t> bytes;
        ReportKind kind;
    };
    struct Handle {
        Fd fd;
        bool reader = true;
        bool announced = false;
        std::deque<Queued> queue;
        std::size_t queuedMeters = 0;
    };

    void accept();
    void serve(const std::shared_ptr<Handle>& handle, short revents);
    bool readFrom(Handle& handle);
    bool flush(Handle& handle);
    void keep(Handle& handle, std::span<const std::uint8_t> report);
    bool enqueue(Handle& handle, std::span<const std::uint8_t> report, ReportKind kind);
    bool deliver(Handle& handle, std::span<const quillon::Report> reports, ReportKind kind);
    void drop(std::shared_ptr<Handle> handle);
    void updateEvents(const Handle& handle);
    template<typename Deliver> std::size_t toAll(Deliver deliver);

    Loop& mLoop;
    std::string mFolder;
    OnWrite mOnWrite;
    Fd mListener;
    std::vector<std::shared_ptr<Handle>> mHandles;
    bool mStalled = false;
    std::uint64_t mDroppedMeters = 0;
};

} // namespace r47
