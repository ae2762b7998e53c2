#pragma once
// The logic of the device without its wires: what it keeps, what it answers, what it does on its own. No clock, no socket.

#include "device/Frame.h"
#include "virtual/core/ParameterStore.h"

#include <optional>
#include <vector>

namespace r47
{

using quillon::Frame;

/// What one received frame brings about.
struct Reaction {
    std::vector<Frame> answers;
    std::optional<int> changeMode; // come back in this work mode
    bool enterUpdate = false;      // come back without HID, ready for a firmware download
};

class DeviceModel
{
public:
    explicit DeviceModel(int workMode);

    int workMode() const { return mWorkMode; }
    void setWorkMode(int workMode) { mWorkMode = workMode; }
    const ParameterStore& parameters() const { return mParameters; }

    /// Takes a frame from the application and keeps its value.
    Reaction receive(const Frame& frame);

    /// A change at the front panel: the report of it. The value is kept, for both sides of an output.
    Frame turn(std::uint16_t code, std::int32_t value);

    /// A report chosen by hand. Of what the hello is answered with (battery, version, identity, plugs) the value is kept.
    Frame report(std::uint16_t code, std::int32_t value);

private:
    std::vector<Frame> greeting() const;
    std::vector<Frame> loadPreset(const ParameterStore& preset);

    int mWorkMode;
    ParameterStore mParameters;
    ParameterStore mOwn; // what the device reports of itself after the hello
    std::optional<ParameterStore> mPresets[2];
};

/// Whether the device reports this parameter when it changes by itself.
bool isReported(std::uint16_t code);

} // namespace r47
