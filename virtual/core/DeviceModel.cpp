#include "virtual/core/DeviceModel.h"

#include <algorithm>
#include <iterator>

namespace r47
{

namespace
{

constexpr std::uint16_t kHello = 0x1101;
constexpr std::uint16_t kSavePreset[] = {0x1108, 0x110B};
constexpr std::uint16_t kLoadPreset[] = {0x110E, 0x1112};
constexpr std::uint16_t kWorkMode = 0x111D;
constexpr std::uint16_t kUpdate = 0x111F;
constexpr std::uint16_t kRestore = 0x1121;
constexpr std::uint16_t kPresetFirst = 0x2000; // what lies below belongs to the unit, not to a sound
constexpr std::uint16_t kPresetLast = 0xFFFF;

Frame frameOf(std::uint16_t code, std::int32_t value)
{
    Frame frame;
    frame.code = code;
    frame.value = value;
    return frame;
}

} // namespace

bool isReported(std::uint16_t code)
{
    constexpr std::uint16_t kSingles[] = {0x1104, 0x111A, 0x111B, 0x111C, 0x111E, 0x1122, 0x1123, 0x4307, 0x4407, 0x4408,
                                          0x440B, 0x6203, 0x6204, 0x6403, 0x6404, 0x9B0F, 0x9B10, 0xAB0F, 0xAB14};
    if (std::find(std::begin(kSingles), std::end(kSingles), code) != std::end(kSingles))
        return true;
    const int block = code >> 12;
    const int channel = (code >> 8) & 0xF;
    const int parameter = code & 0xFF;
    if (block == 2)
        return channel >= 1 && channel <= 7 && parameter >= 2 && parameter <= 5;
    return (block == 9 || block == 0xA) && channel >= 1 && channel <= 10 && parameter >= 1 && parameter <= 10;
}

DeviceModel::DeviceModel(int workMode) : mWorkMode(workMode)
{
    mOwn.set(0x1118, 80);  // battery, percent
    mOwn.set(0x1119, 0);   // charging
    mOwn.set(0x1201, 123); // firmware 1.23
    for (int part = 1; part <= 5; ++part)
        mOwn.set(std::uint16_t(0x1201 + part), 0x10 + part);
    for (const int plug : {0x2106, 0x2206, 0x2306, 0x2506, 0x2706, 0x6206, 0x6406})
        mOwn.set(std::uint16_t(plug), 1);
}

std::vector<Frame> DeviceModel::greeting() const
{
    std::vector<Frame> frames{frameOf(kHello, mWorkMode)};
    mOwn.forEach([&](std::uint16_t code, std::int32_t value) { frames.push_back(frameOf(code, value)); });
    return frames;
}

std::vector<Frame> DeviceModel::loadPreset(const ParameterStore& preset)
{
    std::vector<Frame> changed;
    preset.forEach([&](std::uint16_t code, std::int32_t value) {
        if (code < kPresetFirst || (mParameters.knows(code) && mParameters.value(code) == value))
            return;
        mParameters.set(code, value);
        if (isReported(code))
            changed.push_back(frameOf(code, value));
    });
    return changed;
}

Reaction DeviceModel::receive(const Frame& frame)
{
    const auto code = std::uint16_t(frame.code);
    Reaction reaction;
    mParameters.set(code, frame.value);
    if (code == kHello)
        reaction.answers = greeting();
    else if (code == kWorkMode && frame.value >= 1 && frame.value <= 3 && frame.value != mWorkMode)
        reaction.changeMode = frame.value;
    else if (code == kUpdate && frame.value != 0)
        reaction.enterUpdate = true;
    else if (code == kRestore && frame.value != 0)
        mParameters.forget(kPresetFirst, kPresetLast);
    for (std::size_t slot = 0; slot < 2; ++slot) {
        if (code == kSavePreset[slot])
            mPresets[slot] = mParameters;
        else if (code == kLoadPreset[slot] && mPresets[slot])
            reaction.answers = loadPreset(*mPresets[slot]);
    }
    return reaction;
}

Frame DeviceModel::turn(std::uint16_t code, std::int32_t value)
{
    mParameters.set(code, value);
    // An output is reported in its right block only; its knob turns both sides.
    if ((code >> 8 == 0x62 || code >> 8 == 0x64) && ((code & 0xFF) == 3 || (code & 0xFF) == 4))
        mParameters.set(std::uint16_t(code - 0x100), value);
    if (mOwn.knows(code))
        mOwn.set(code, value);
    return frameOf(code, value);
}

Frame DeviceModel::report(std::uint16_t code, std::int32_t value)
{
    if (mOwn.knows(code))
        mOwn.set(code, value);
    return frameOf(code, value);
}

} // namespace r47
