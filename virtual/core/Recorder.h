#pragma once
// The record: each frame as one line "microseconds in|out code value name". Buffered; who owns it decides when to flush.

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace r47
{

/// As the device sees it: In is what the application wrote.
enum class Direction { In, Out };

class Recorder
{
public:
    ~Recorder() { close(); }

    /// Starts a new record; a file of that name is replaced. False, and errno, when it can not be written; the old record goes on.
    bool open(const std::string& path);
    /// Writes out what is pending and ends the record. False when something could not be written.
    bool close();
    bool isOpen() const { return mFile; }

    /// Adds a line; costs a few dozen nanoseconds and no system call until the buffer is full. Ignored without a record.
    void add(std::uint64_t timeNs, Direction direction, std::uint16_t code, std::int32_t value, std::string_view name);
    bool hasPending() const { return !mBuffer.empty(); }
    /// Writes out what is pending. False when that failed, now or since the record was opened.
    bool flush();

private:
    std::FILE* mFile = nullptr;
    std::string mBuffer;
    bool mFailed = false;
};

} // namespace r47
