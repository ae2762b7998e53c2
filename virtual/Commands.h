#pragma once
// What r47d can be told: one row for each command, shared by r47d, which carries them out, and r47ctl, which explains them.

#include <string_view>

namespace r47
{

struct CommandInfo {
    std::string_view name;
    std::string_view arguments;
    std::string_view summary;
    std::size_t least; // number of arguments
    std::size_t most;
};

inline constexpr CommandInfo kCommands[] = {
    {"clear", "", "sets all counters and stamps to zero", 0, 0},
    {"count", "CODE", "how often that code was received since the last clear", 1, 1},
    {"dfu", "seconds S | fail PERCENT|off | stick PERCENT|off | refuse on|off | state", "how the next firmware download goes", 1,
     2},
    {"driver", "rate HZ | buffer SAMPLES | safe on|off", "changes the driver's settings as another program would", 2, 2},
    {"flood", "COUNT PER_SECOND", "sends numbered IN 1 levels 0, -1, -2 ...; PER_SECOND 0: as fast as they are read", 2, 2},
    {"frame", "CODE VALUE", "sends any report", 2, 2},
    {"garbage", "N", "sends N random reports of 1 to 64 bytes", 1, 1},
    {"hid", "on|off", "whether there is a HID interface while the driver lists the device", 1, 1},
    {"level", "SOURCE DB|off", "holds a source (IN1, AUX, AUXL, PB12 ...) at a level, or lets it play again", 2, 2},
    {"mode", "1|2|3", "comes back in another work mode", 1, 1},
    {"panel", "OBJECT ATTRIBUTE VALUE", "turns a control of the unit: panel Input_AUX GAIN -6", 3, 3},
    {"ping", "", "answers", 0, 0},
    {"plug", "[0|1|2]", "plugs in one device, or that many", 0, 1},
    {"quit", "", "ends r47d", 0, 0},
    {"rate", "HZ", "levels per second and code, 0 for none", 1, 1},
    {"record", "FILE | off | flush", "writes each frame to a file, one line each", 1, 64},
    {"short", "N", "sends N reports that break off early", 1, 1},
    {"silence", "on|off", "reads on, but sends only what a command asks for", 1, 1},
    {"slow", "MS", "delays each answer", 1, 1},
    {"stall", "on|off", "stops taking what is written", 1, 1},
    {"stamps", "CODE", "[[nanoseconds, value], ...] of the frames of that code since the last clear", 1, 1},
    {"state", "", "everything about the device, as JSON", 0, 0},
    {"unplug", "", "pulls the cable", 0, 0},
    {"wait", "CODE [VALUE|any] [TIMEOUT_MS]", "until that frame has come since the last clear; 5000 ms", 1, 3},
};

} // namespace r47
