#pragma once

class DeviceConnector;

namespace quillon
{

/// Registers the consoles that this program has. The one place of the folder that knows them.
void registerConsoles(DeviceConnector& connector);

} // namespace quillon
