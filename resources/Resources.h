#pragma once

namespace quillon
{
/// Makes the artwork and fonts (":/Icon", ":/Image", ":/Font") known to Qt. Once, before the first use; later calls do nothing.
/// Any thread. Needed because the resources lie in a static library, from which the linker would drop them.
void initResources();
} // namespace quillon
