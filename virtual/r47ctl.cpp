// r47ctl: one command to a running r47d. Ends with 0 when it was done, 1 when it was refused or its time was up, 2 for wrong use.

#include "virtual/Commands.h"
#include "virtual/ControlClient.h"

#include <cstdio>
#include <filesystem>
#include <string>

namespace
{

void printHelp(std::FILE* to)
{
    std::fputs("r47ctl [--dir DIR] COMMAND [ARGUMENT...]\nCODE is four hexadecimal digits or a name as in a record.\n\n", to);
    for (const r47::CommandInfo& info : r47::kCommands)
        std::fprintf(to, "  %-8.*s %.*s\n           %.*s\n", int(info.name.size()), info.name.data(), int(info.arguments.size()),
                     info.arguments.data(), int(info.summary.size()), info.summary.data());
}

/// How long the daemon may take for a command: floods and waits name their own time.
constexpr int kPatienceMs = 3'600'000;

} // namespace

int main(int argc, char** argv)
{
    std::string folder = r47::defaultFolder();
    int at = 1;
    if (argc > 2 && std::string_view(argv[1]) == "--dir") {
        folder = argv[2];
        at = 3;
    }
    std::string line;
    for (int i = at; i < argc; ++i) {
        std::string word = argv[i];
        // r47d has a working directory of its own.
        if (line == "record" && word != "off" && word != "flush")
            word = std::filesystem::absolute(word).string();
        line += (line.empty() ? "" : " ") + word;
    }
    if (line.empty() || line == "help" || line == "--help") {
        printHelp(line.empty() ? stderr : stdout);
        return line.empty() ? 2 : 0;
    }
    if (line.find('\n') != std::string::npos) {
        std::fputs("r47ctl: a command is one line\n", stderr);
        return 2;
    }
    r47::ControlClient client(folder);
    const r47::Reply reply = client.command(line, kPatienceMs);
    if (reply && line == "quit")
        client.waitForEnd(kPatienceMs);
    if (reply && !reply.text.empty())
        std::printf("%s\n", reply.text.c_str());
    else if (!reply)
        std::fprintf(stderr, "%s%s\n",
                     reply.status == r47::Reply::Status::Usage ? "usage: r47ctl " : "r47ctl: ", reply.text.c_str());
    return reply ? 0 : reply.status == r47::Reply::Status::Usage ? 2 : 1;
}
