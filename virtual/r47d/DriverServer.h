#pragma once
// The driver's door. One packet is one call, "name number number ..."; the answer is "status number ...", 0 for success.
// Answered at once, so that a caller in a GUI thread is never held up.

#include "virtual/r47d/Unit.h"

#include <string>
#include <vector>

namespace r47
{

class DriverServer
{
public:
    DriverServer(Loop& loop, Unit& unit, std::string folder);
    ~DriverServer();

    bool open();

private:
    using Numbers = std::vector<std::uint64_t>;
    struct Call {
        std::string_view name;
        std::size_t arguments;
        Numbers (DriverServer::*run)(const Numbers&);
    };

    void accept();
    void serve(int fd);
    std::string answer(std::string_view request);
    bool isHandle(std::uint64_t handle) const;
    bool isInstance(std::uint64_t instance) const;

    Numbers list(const Numbers&);
    Numbers openDevice(const Numbers& arguments);
    Numbers checkDevice(const Numbers& arguments);
    Numbers rates(const Numbers& arguments);
    Numbers rate(const Numbers& arguments);
    Numbers setRate(const Numbers& arguments);
    Numbers instance(const Numbers& arguments);
    Numbers info(const Numbers& arguments);
    Numbers setBuffer(const Numbers& arguments);
    Numbers startDownload(const Numbers& arguments);
    Numbers downloadStatus(const Numbers&);
    Numbers endDownload(const Numbers&);

    static const Call kCalls[];

    Loop& mLoop;
    Unit& mUnit;
    std::string mFolder;
    Fd mListener;
    std::vector<Fd> mClients;
};

} // namespace r47
