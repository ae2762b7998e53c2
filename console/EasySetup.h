#pragma once

class DeviceR47;

namespace quillon
{

/// Pins the routing that the Easy page hides: unity crosspoints of its sources, silence of the others, the mixes of its outputs.
/// Straight into the device slots, before the page's workspace loads. GUI thread.
void sendEasySetup(DeviceR47& device);

} // namespace quillon
