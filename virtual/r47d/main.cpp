// r47d: an R47 in software. docs/VIRTUAL_R47.md tells how to use it.

#include "virtual/r47d/Commander.h"
#include "virtual/r47d/DriverServer.h"
#include "virtual/r47d/Words.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

volatile int gEnd = 0; // set by a signal; a full int is written at once on every machine this runs on

constexpr const char* kUsage =
    "usage: r47d [--dir DIR] [--mode 1|2|3] [--rate HZ] [--seed N] [--wav FILE] [--unplugged] [--with-parent]\n";

struct Options {
    r47::Unit::Options unit;
    std::string wav;
    bool unplugged = false;
    bool withParent = false;
};

bool readOption(Options& options, std::string_view name, const char* value)
{
    if (!value)
        return false;
    if (name == "--dir") {
        options.unit.folder = value;
    } else if (name == "--wav") {
        options.wav = value;
    } else if (name == "--mode") {
        options.unit.workMode = r47::number<int>(value, 1, 3).value_or(0);
        return options.unit.workMode != 0;
    } else if (name == "--rate") {
        options.unit.meterHz = r47::number<double>(value, 0.0, 10000.0).value_or(-1.0);
        return options.unit.meterHz >= 0.0;
    } else if (name == "--seed") {
        const auto seed = r47::number<std::uint64_t>(value, 0, UINT64_MAX);
        options.unit.seed = seed.value_or(0);
        return seed.has_value();
    } else {
        return false;
    }
    return true;
}

bool readOptions(Options& options, int argc, char** argv)
{
    options.unit.folder = r47::defaultFolder();
    for (int i = 1; i < argc; ++i) {
        const std::string_view name = argv[i];
        if (name == "--unplugged")
            options.unplugged = true;
        else if (name == "--with-parent")
            options.withParent = true;
        else if (!readOption(options, name, argv[++i]))
            return false;
    }
    return true;
}

/// Makes the folder for this user only. One that is there must be ours and not be writable by others.
bool prepareFolder(const std::string& folder, std::string& reason)
{
    if (::mkdir(folder.c_str(), 0700) == 0)
        return true;
    struct stat info {
    };
    if (errno != EEXIST || ::stat(folder.c_str(), &info) != 0)
        reason = folder.empty() ? "no folder: give --dir, R47_DIR or XDG_RUNTIME_DIR" : std::strerror(errno);
    else if (!S_ISDIR(info.st_mode) || info.st_uid != ::geteuid() || (info.st_mode & 022))
        reason = "the folder is not this user's own";
    else if (r47::connectTo(folder, r47::kControlSocket, SOCK_STREAM))
        reason = "an r47d is running there";
    return reason.empty();
}

void catchSignals()
{
    struct sigaction action {
    };
    action.sa_handler = [](int) { gEnd = 1; };
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        ::sigaction(signal, &action, nullptr);
        sigaddset(&held, signal);
    }
    ::sigprocmask(SIG_BLOCK, &held, nullptr); // the loop lets them in while it waits
    ::signal(SIGPIPE, SIG_IGN);
}

int run(const Options& options)
{
    r47::Loop loop;
    r47::Unit unit(loop, options.unit);
    std::string reason;
    if (!options.wav.empty() && !unit.performance().recording().load(options.wav, reason)) {
        std::fprintf(stderr, "r47d: %s: %s\n", options.wav.c_str(), reason.c_str());
        return 2;
    }
    r47::Commander commander(loop, unit);
    r47::ControlServer control(loop, options.unit.folder,
                               [&](std::string_view line, const r47::Answer& answer) { commander.run(line, answer); });
    r47::DriverServer driver(loop, unit, options.unit.folder);
    // The control door opens last: who reaches it finds the device complete.
    if (!(options.unplugged || unit.plug(1)) || !driver.open() || !control.open()) {
        std::fprintf(stderr, "r47d: %s: %s\n", options.unit.folder.c_str(), std::strerror(errno));
        return 1;
    }
    loop.run(gEnd);
    // The control connections close last: who waits for that finds the other doors shut and the record complete.
    unit.unplug();
    return unit.endRecord() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!readOptions(options, argc, argv)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    std::string reason;
    if (!prepareFolder(options.unit.folder, reason)) {
        std::fprintf(stderr, "r47d: %s\n", reason.c_str());
        return 1;
    }
    catchSignals();
    if (options.withParent)
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    return run(options);
}
