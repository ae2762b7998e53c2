#include "virtual/r47d/Commander.h"

#include "virtual/r47d/Json.h"
#include "virtual/r47d/Words.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

namespace r47
{

namespace
{

constexpr int kMostReports = 1'000'000;
constexpr std::uint64_t kMostMs = 3'600'000;

std::optional<std::int32_t> wireValue(std::string_view word)
{
    return number<std::int32_t>(word, INT32_MIN, INT32_MAX);
}

Unit::OnDone done(const Answer& answer, std::string refusal)
{
    return [answer, refusal = std::move(refusal)](bool good) { answer(good ? "ok" : "refused " + refusal); };
}

/// Reads a percentage, or "off" for none. False for anything else.
bool readPercent(std::string_view word, std::optional<double>& percent)
{
    if (word == "off") {
        percent.reset();
        return true;
    }
    const auto read = number<double>(word, 0.0, 100.0);
    if (read)
        percent = read;
    return read.has_value();
}

} // namespace

std::span<const Commander::Entry> Commander::entries()
{
    static constexpr Entry kEntries[] = {
        {"clear", &Commander::clear},     {"count", &Commander::count},    {"dfu", &Commander::dfu},
        {"driver", &Commander::driver},   {"flood", &Commander::flood},    {"frame", &Commander::frame},
        {"garbage", &Commander::garbage}, {"hid", &Commander::hid},        {"level", &Commander::level},
        {"mode", &Commander::mode},       {"panel", &Commander::panel},    {"ping", &Commander::ping},
        {"plug", &Commander::plug},       {"quit", &Commander::quit},      {"rate", &Commander::rate},
        {"record", &Commander::record},   {"short", &Commander::breakOff}, {"silence", &Commander::silence},
        {"slow", &Commander::slow},       {"stall", &Commander::stall},    {"stamps", &Commander::stamps},
        {"state", &Commander::state},     {"unplug", &Commander::unplug},  {"wait", &Commander::wait},
    };
    static_assert(std::ranges::equal(kEntries, kCommands, {}, &Entry::name, &CommandInfo::name));
    return kEntries;
}

void Commander::run(std::string_view line, const Answer& answer)
{
    const auto parts = words(line);
    for (std::size_t i = 0; i < std::size(kCommands) && !parts.empty(); ++i) {
        const CommandInfo& info = kCommands[i];
        if (parts[0] != info.name)
            continue;
        const Words arguments = Words(parts).subspan(1);
        const bool fits = arguments.size() >= info.least && arguments.size() <= info.most;
        if (!fits || !(this->*entries()[i].handler)(arguments, answer))
            answer("usage " + std::string(info.name) + ' ' + std::string(info.arguments));
        return;
    }
    answer("usage help");
}

bool Commander::clear(Words, const Answer& answer)
{
    mUnit.traffic().clear();
    mUnit.hid().clearCounters();
    answer("ok");
    return true;
}

bool Commander::count(Words arguments, const Answer& answer)
{
    const auto code = codeOf(arguments[0]);
    if (code)
        answer("ok " + std::to_string(mUnit.traffic().countOf(*code)));
    return code.has_value();
}

bool Commander::dfu(Words arguments, const Answer& answer)
{
    Download& download = mUnit.download();
    if (arguments[0] == "state" && arguments.size() == 1) {
        const auto status = download.status(nowNs());
        answer("ok " + std::to_string(status.state) + ' ' + std::to_string(status.done) + ' ' + std::to_string(status.total));
        return true;
    }
    if (arguments.size() != 2)
        return false;
    bool good = false;
    if (arguments[0] == "seconds") {
        const auto seconds = number<double>(arguments[1], 0.0, 3600.0);
        good = seconds.has_value();
        download.seconds = seconds.value_or(download.seconds);
    } else if (arguments[0] == "fail") {
        good = readPercent(arguments[1], download.failAtPercent);
    } else if (arguments[0] == "stick") {
        good = readPercent(arguments[1], download.stickAtPercent);
    } else if (arguments[0] == "refuse") {
        const auto refuse = onOff(arguments[1]);
        good = refuse.has_value();
        download.refused = refuse.value_or(download.refused);
    }
    if (good)
        answer("ok");
    return good;
}

bool Commander::driver(Words arguments, const Answer& answer)
{
    AudioDriver& driver = mUnit.driver();
    if (arguments[0] == "safe") {
        const auto on = onOff(arguments[1]);
        if (!on)
            return false;
        driver.setSafeMode(*on);
        answer("ok");
        return true;
    }
    const auto wanted = number<std::uint32_t>(arguments[1], 0, UINT32_MAX);
    if (!wanted || (arguments[0] != "rate" && arguments[0] != "buffer"))
        return false;
    const bool good = arguments[0] == "rate" ? driver.setRate(*wanted) : driver.setBufferSize(*wanted);
    answer(good ? "ok" : "refused not supported");
    return true;
}

bool Commander::flood(Words arguments, const Answer& answer)
{
    const auto count = number<std::uint64_t>(arguments[0], 1, INT32_MAX);
    const auto perSecond = number<double>(arguments[1], 0.0, 1e7);
    if (!count || !perSecond)
        return false;
    if (mUnit.hid().readerCount() == 0) {
        answer("refused no reader");
        return true;
    }
    const std::uint64_t dropped = mUnit.hid().droppedMeters();
    mUnit.flood(*count, *perSecond, [this, answer, dropped](bool good) {
        answer(good ? "ok dropped " + std::to_string(mUnit.hid().droppedMeters() - dropped) : "refused unplugged");
    });
    return true;
}

bool Commander::frame(Words arguments, const Answer& answer)
{
    const auto code = codeOf(arguments[0]);
    const auto value = wireValue(arguments[1]);
    if (!code || !value)
        return false;
    mUnit.report(*code, *value);
    answer("ok");
    return true;
}

bool Commander::garbage(Words arguments, const Answer& answer)
{
    const auto count = number<int>(arguments[0], 0, kMostReports);
    if (!count)
        return false;
    mUnit.sendGarbage(*count, false);
    answer("ok");
    return true;
}

bool Commander::breakOff(Words arguments, const Answer& answer)
{
    const auto count = number<int>(arguments[0], 0, kMostReports);
    if (!count)
        return false;
    mUnit.sendGarbage(*count, true);
    answer("ok");
    return true;
}

bool Commander::hid(Words arguments, const Answer& answer)
{
    const auto on = onOff(arguments[0]);
    if (on)
        answer(mUnit.setHid(*on) ? "ok" : "refused no socket");
    return on.has_value();
}

bool Commander::level(Words arguments, const Answer& answer)
{
    std::optional<double> db;
    if (arguments[1] != "off") {
        db = number<double>(arguments[1], -200.0, 60.0);
        if (!db)
            return false;
    }
    answer(mUnit.performance().hold(std::string(arguments[0]), db) ? "ok" : "refused no such source");
    return true;
}

bool Commander::mode(Words arguments, const Answer& answer)
{
    const auto mode = number<int>(arguments[0], 1, 3);
    if (mode)
        mUnit.changeMode(*mode, done(answer, "unplugged"));
    return mode.has_value();
}

bool Commander::panel(Words arguments, const Answer& answer)
{
    std::string reason;
    const auto report =
        mUnit.names().panel(std::string(arguments[0]), std::string(arguments[1]), std::string(arguments[2]), reason);
    if (report && report->isLevel)
        mUnit.report(report->code, report->value);
    else if (report)
        mUnit.turn(report->code, report->value);
    answer(report ? "ok" : "refused " + reason);
    return true;
}

bool Commander::ping(Words, const Answer& answer)
{
    answer("ok");
    return true;
}

bool Commander::plug(Words arguments, const Answer& answer)
{
    const auto devices = arguments.empty() ? std::optional(1) : number<int>(arguments[0], 0, 2);
    if (devices)
        answer(mUnit.plug(*devices) ? "ok" : "refused no socket");
    return devices.has_value();
}

bool Commander::quit(Words, const Answer& answer)
{
    answer("ok");
    mLoop.stop();
    return true;
}

bool Commander::rate(Words arguments, const Answer& answer)
{
    const auto hz = number<double>(arguments[0], 0.0, 10000.0);
    if (!hz)
        return false;
    mUnit.setMeterRate(*hz);
    answer("ok");
    return true;
}

bool Commander::record(Words arguments, const Answer& answer)
{
    bool good = false;
    if (arguments.size() == 1 && arguments[0] == "off") {
        good = mUnit.endRecord();
    } else if (arguments.size() == 1 && arguments[0] == "flush") {
        good = mUnit.flushRecord();
    } else {
        // A file name may hold blanks: it is the rest of the line.
        good = mUnit.startRecord({arguments.front().data(), arguments.back().data() + arguments.back().size()});
    }
    answer(good ? "ok" : std::string("refused ") + std::strerror(errno));
    return true;
}

bool Commander::silence(Words arguments, const Answer& answer)
{
    const auto on = onOff(arguments[0]);
    if (!on)
        return false;
    mUnit.setSilent(*on);
    answer("ok");
    return true;
}

bool Commander::slow(Words arguments, const Answer& answer)
{
    const auto ms = number<std::uint64_t>(arguments[0], 0, kMostMs);
    if (!ms)
        return false;
    mUnit.setAnswerDelay(*ms);
    answer("ok");
    return true;
}

bool Commander::stall(Words arguments, const Answer& answer)
{
    const auto on = onOff(arguments[0]);
    if (!on)
        return false;
    mUnit.setStalled(*on);
    answer("ok");
    return true;
}

bool Commander::stamps(Words arguments, const Answer& answer)
{
    const auto code = codeOf(arguments[0]);
    if (!code)
        return false;
    JsonWriter json;
    json.beginArray();
    mUnit.traffic().forEachStamp([&](const Traffic::Stamp& stamp) {
        if (stamp.code == *code)
            json.beginArray().value(stamp.timeNs).value(stamp.value).endArray();
    });
    json.endArray();
    answer("ok " + json.take());
    return true;
}

bool Commander::state(Words, const Answer& answer)
{
    answer("ok " + mUnit.state());
    return true;
}

bool Commander::unplug(Words, const Answer& answer)
{
    mUnit.unplug();
    answer("ok");
    return true;
}

bool Commander::wait(Words arguments, const Answer& answer)
{
    const auto code = codeOf(arguments[0]);
    std::optional<std::int32_t> value;
    if (arguments.size() > 1 && arguments[1] != "any") {
        value = wireValue(arguments[1]);
        if (!value)
            return false;
    }
    const auto ms = arguments.size() > 2 ? number<std::uint64_t>(arguments[2], 0, kMostMs) : std::optional<std::uint64_t>(5000);
    if (!code || !ms)
        return false;
    mUnit.waitFor(*code, value, *ms, done(answer, "time is up"));
    return true;
}

} // namespace r47
