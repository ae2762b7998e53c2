#include "virtual/r47d/DriverServer.h"

#include "virtual/r47d/Words.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

namespace r47
{

namespace
{

constexpr std::uint64_t kDone = 0;
constexpr std::uint64_t kGone = 1;    // no such device, or not any more
constexpr std::uint64_t kRefused = 2; // a value that the device does not take
constexpr std::uint32_t kSafeMode = 1u << 16;
constexpr std::uint64_t kMostImageBytes = 64u << 20;

} // namespace

const DriverServer::Call DriverServer::kCalls[] = {
    {"list", 0, &DriverServer::list},
    {"open", 1, &DriverServer::openDevice},
    {"check", 1, &DriverServer::checkDevice},
    {"rates", 1, &DriverServer::rates},
    {"rate", 1, &DriverServer::rate},
    {"setrate", 2, &DriverServer::setRate},
    {"instance", 1, &DriverServer::instance},
    {"info", 1, &DriverServer::info},
    {"setbuffer", 3, &DriverServer::setBuffer},
    {"dfustart", 2, &DriverServer::startDownload},
    {"dfustatus", 0, &DriverServer::downloadStatus},
    {"dfuend", 0, &DriverServer::endDownload},
};

DriverServer::DriverServer(Loop& loop, Unit& unit, std::string folder) : mLoop(loop), mUnit(unit), mFolder(std::move(folder)) {}

DriverServer::~DriverServer()
{
    if (mListener)
        ::unlink((mFolder + '/' + kDriverSocket).c_str());
}

bool DriverServer::open()
{
    mListener = listenAt(mFolder, kDriverSocket, SOCK_SEQPACKET);
    if (mListener)
        mLoop.watch(mListener.get(), POLLIN, [this](short) { accept(); });
    return bool(mListener);
}

void DriverServer::accept()
{
    while (Fd fd{::accept4(mListener.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC)}) {
        mLoop.watch(fd.get(), POLLIN, [this, number = fd.get()](short) { serve(number); });
        mClients.push_back(std::move(fd));
    }
}

void DriverServer::serve(int fd)
{
    std::array<char, 256> buffer;
    const auto got = ::recv(fd, buffer.data(), buffer.size(), 0);
    if (got < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (got > 0) {
        const std::string reply = answer(std::string_view(buffer.data(), std::size_t(got)));
        if (::send(fd, reply.data(), reply.size(), MSG_NOSIGNAL) >= 0)
            return;
    }
    // Gone, or does not take its answers.
    mLoop.unwatch(fd);
    std::erase_if(mClients, [fd](const Fd& client) { return client.get() == fd; });
}

std::string DriverServer::answer(std::string_view request)
{
    const auto parts = words(request);
    Numbers arguments;
    for (std::size_t i = 1; i < parts.size(); ++i)
        if (const auto argument = number<std::uint64_t>(parts[i], 0, UINT32_MAX))
            arguments.push_back(*argument);
    Numbers results{kRefused};
    for (const Call& call : kCalls)
        if (!parts.empty() && call.name == parts[0] && call.arguments == arguments.size() && arguments.size() + 1 == parts.size())
            results = (this->*call.run)(arguments);
    std::string text;
    for (const std::uint64_t result : results)
        text += (text.empty() ? "" : " ") + std::to_string(result);
    return text;
}

bool DriverServer::isHandle(std::uint64_t handle) const
{
    return (handle >> 8) == (mUnit.epoch() & 0xFFFFFF) && (handle & 0xFF) >= 1 && int(handle & 0xFF) <= mUnit.devices();
}

bool DriverServer::isInstance(std::uint64_t instance) const
{
    return mUnit.devices() > 0 && instance == mUnit.epoch();
}

DriverServer::Numbers DriverServer::list(const Numbers&)
{
    return {kDone, std::uint64_t(mUnit.devices())};
}

DriverServer::Numbers DriverServer::openDevice(const Numbers& arguments)
{
    if (arguments[0] >= std::uint64_t(mUnit.devices()))
        return {kGone};
    return {kDone, std::uint64_t(mUnit.epoch() & 0xFFFFFF) << 8 | (arguments[0] + 1)};
}

DriverServer::Numbers DriverServer::checkDevice(const Numbers& arguments)
{
    return {isHandle(arguments[0]) ? kDone : kGone};
}

DriverServer::Numbers DriverServer::rates(const Numbers& arguments)
{
    if (!isHandle(arguments[0]))
        return {kGone};
    Numbers results{kDone};
    const auto all = AudioDriver::rates();
    results.insert(results.end(), all.begin(), all.end());
    return results;
}

DriverServer::Numbers DriverServer::rate(const Numbers& arguments)
{
    if (!isHandle(arguments[0]))
        return {kGone};
    return {kDone, mUnit.driver().rate()};
}

DriverServer::Numbers DriverServer::setRate(const Numbers& arguments)
{
    if (!isHandle(arguments[0]))
        return {kGone};
    return {mUnit.driver().setRate(std::uint32_t(arguments[1])) ? kDone : kRefused};
}

DriverServer::Numbers DriverServer::instance(const Numbers& arguments)
{
    if (arguments[0] >= std::uint64_t(mUnit.devices()))
        return {kGone};
    return {kDone, mUnit.epoch()};
}

DriverServer::Numbers DriverServer::info(const Numbers& arguments)
{
    if (!isInstance(arguments[0]))
        return {kGone};
    const AudioDriver& driver = mUnit.driver();
    Numbers results{kDone, driver.bufferSize(), driver.safeMode() ? kSafeMode : 0};
    const auto sizes = driver.bufferSizes();
    results.insert(results.end(), sizes.begin(), sizes.end());
    return results;
}

DriverServer::Numbers DriverServer::setBuffer(const Numbers& arguments)
{
    if (!isInstance(arguments[0]))
        return {kGone};
    if (!mUnit.driver().setBufferSize(std::uint32_t(arguments[1])))
        return {kRefused};
    mUnit.driver().setSafeMode(arguments[2] & kSafeMode);
    return {kDone};
}

DriverServer::Numbers DriverServer::startDownload(const Numbers& arguments)
{
    if (arguments[0] >= std::uint64_t(mUnit.devices()))
        return {kGone};
    const bool started = arguments[1] <= kMostImageBytes && mUnit.download().start(std::uint32_t(arguments[1]), nowNs());
    return {started ? kDone : kRefused};
}

DriverServer::Numbers DriverServer::downloadStatus(const Numbers&)
{
    const auto status = mUnit.devices() > 0 ? mUnit.download().status(nowNs()) : Download::Status{Download::Failed, 0, 0};
    return {kDone, status.state, status.done, status.total};
}

DriverServer::Numbers DriverServer::endDownload(const Numbers&)
{
    mUnit.endDownload();
    return {kDone};
}

} // namespace r47
