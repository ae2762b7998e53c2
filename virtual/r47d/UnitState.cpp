#include "virtual/r47d/Json.h"
#include "virtual/r47d/Unit.h"

namespace r47
{

namespace
{

constexpr const char* kLoopbacks[] = {"LB12", "LB34", "LB56", "LB78"};
constexpr const char* kMixes[] = {"Mix A", "Mix B", "Mix C", "Mix D", "Mix E"};

double decibels(double power)
{
    const std::int32_t tenths = tenthsOfPower(power);
    return tenths == 1 ? 0.0 : tenths / 10.0;
}

void writeLevels(JsonWriter& json, const Levels& levels)
{
    const auto stereo = [&](std::string_view name, double left, double right) {
        json.beginArray(name).value(decibels(left)).value(decibels(right)).endArray();
    };
    json.beginObject("levels");
    for (const SourceName& source : sources()) {
        const auto left = std::size_t(source.left);
        if (source.stereo)
            stereo(source.name, levels.source[left], levels.source[left + 1]);
        else
            json.member(source.name, decibels(levels.source[left]));
    }
    for (std::size_t i = 0; i < levels.mix.size(); ++i)
        stereo(kMixes[i], levels.mix[i][0], levels.mix[i][1]);
    for (std::size_t i = 0; i < levels.loopback.size(); ++i)
        stereo(kLoopbacks[i], levels.loopback[i][0], levels.loopback[i][1]);
    stereo("HP", levels.hpOut[0], levels.hpOut[1]);
    stereo("OTGOUT", levels.otgOut[0], levels.otgOut[1]);
    json.endObject();
}

} // namespace

std::string Unit::state() const
{
    JsonWriter json;
    json.beginObject();
    json.member("mode", mModel.workMode()).member("plugged", mDevices).member("hid", mHid.isOpen());
    json.member("update", mUpdating).member("greeted", mGreeted).member("silence", mSilent).member("stall", mStalled);
    json.member("rate", mMeterHz).member("slow", mAnswerDelayNs / 1'000'000u).member("recording", mRecorder.isOpen());
    json.member("handles", mHid.handleCount()).member("readers", mHid.readerCount()).member("backlog", mHid.backlog());
    json.member("in", mTraffic.in()).member("out", mTraffic.out()).member("bad", mTraffic.bad());
    json.member("dropped", mHid.droppedMeters());
    json.beginObject("driver").member("rate", mDriver.rate()).member("buffer", mDriver.bufferSize());
    json.member("safe", mDriver.safeMode()).endObject();
    json.beginObject("parameters");
    mModel.parameters().forEach([&](std::uint16_t code, std::int32_t value) { json.member(hexCode(code), value); });
    json.endObject();
    json.beginObject("names");
    mModel.parameters().forEach([&](std::uint16_t code, std::int32_t value) {
        const std::string& name = mNames.of(code);
        if (const auto first = mNames.code(name); first && *first == code) // a name of two codes stands for its first one
            json.member(name, value);
    });
    json.endObject();
    writeLevels(json, levels());
    json.endObject();
    return json.take();
}

} // namespace r47
