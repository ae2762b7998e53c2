#include "virtual/core/Recorder.h"

#include <charconv>

namespace r47
{

namespace
{

constexpr std::size_t kFull = 1u << 20;

template<typename T> void append(std::string& out, T number)
{
    char text[24];
    out.append(text, std::to_chars(text, text + sizeof text, number).ptr);
}

} // namespace

bool Recorder::open(const std::string& path)
{
    std::FILE* file = std::fopen(path.c_str(), "we");
    if (!file)
        return false;
    std::setvbuf(file, nullptr, _IONBF, 0); // the buffer here is the only one
    close();
    mFile = file;
    mFailed = false;
    return true;
}

bool Recorder::close()
{
    if (!mFile)
        return true;
    bool good = flush();
    good &= std::fclose(mFile) == 0;
    mFile = nullptr;
    return good;
}

void Recorder::add(std::uint64_t timeNs, Direction direction, std::uint16_t code, std::int32_t value, std::string_view name)
{
    if (!mFile)
        return;
    constexpr char kHex[] = "0123456789abcdef";
    append(mBuffer, timeNs / 1000);
    mBuffer += direction == Direction::In ? " in " : " out ";
    for (int shift = 12; shift >= 0; shift -= 4)
        mBuffer += kHex[(code >> shift) & 0xF];
    mBuffer += ' ';
    append(mBuffer, value);
    mBuffer += ' ';
    mBuffer += name;
    mBuffer += '\n';
    if (mBuffer.size() >= kFull)
        flush();
}

bool Recorder::flush()
{
    if (mFile && !mBuffer.empty())
        mFailed |= std::fwrite(mBuffer.data(), 1, mBuffer.size(), mFile) != mBuffer.size();
    mBuffer.clear();
    return !mFailed;
}

} // namespace r47
