#pragma once

class DeviceR47;

namespace quillon
{

class ConsolePage;
class InboundRouter;

/// Builds the input field of the Live page: its five strips from their table, the page's audience, and the ways to and from the
/// device. Each strip is connected to the device slot itself, the field is not, so that an event reaches the device once.
/// Everything built belongs to the page.
void buildLiveInputs(ConsolePage& page, DeviceR47& device, InboundRouter& router);

} // namespace quillon
