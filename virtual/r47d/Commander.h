#pragma once
// Carries out the commands of a script. Answers begin with "ok", "refused" or "usage"; see docs/VIRTUAL_R47.md.

#include "virtual/Commands.h"
#include "virtual/r47d/ControlServer.h"
#include "virtual/r47d/Unit.h"

#include <span>
#include <vector>

namespace r47
{

class Commander
{
public:
    Commander(Loop& loop, Unit& unit) : mLoop(loop), mUnit(unit) {}

    void run(std::string_view line, const Answer& answer);

private:
    using Words = std::span<const std::string_view>;
    /// True when the arguments were understood: then, and only then, it answers.
    using Handler = bool (Commander::*)(Words arguments, const Answer& answer);
    struct Entry {
        std::string_view name;
        Handler handler;
    };

    bool clear(Words, const Answer& answer);
    bool count(Words arguments, const Answer& answer);
    bool dfu(Words arguments, const Answer& answer);
    bool driver(Words arguments, const Answer& answer);
    bool flood(Words arguments, const Answer& answer);
    bool frame(Words arguments, const Answer& answer);
    bool garbage(Words arguments, const Answer& answer);
    bool breakOff(Words arguments, const Answer& answer);
    bool hid(Words arguments, const Answer& answer);
    bool level(Words arguments, const Answer& answer);
    bool mode(Words arguments, const Answer& answer);
    bool panel(Words arguments, const Answer& answer);
    bool ping(Words, const Answer& answer);
    bool plug(Words arguments, const Answer& answer);
    bool quit(Words, const Answer& answer);
    bool rate(Words arguments, const Answer& answer);
    bool record(Words arguments, const Answer& answer);
    bool silence(Words arguments, const Answer& answer);
    bool slow(Words arguments, const Answer& answer);
    bool stall(Words arguments, const Answer& answer);
    bool stamps(Words arguments, const Answer& answer);
    bool state(Words, const Answer& answer);
    bool unplug(Words, const Answer& answer);
    bool wait(Words arguments, const Answer& answer);

    std::optional<std::uint16_t> codeOf(std::string_view word) const { return mUnit.names().code(std::string(word)); }

    /// In the order of kCommands.
    static std::span<const Entry> entries();

    Loop& mLoop;
    Unit& mUnit;
};

} // namespace r47
