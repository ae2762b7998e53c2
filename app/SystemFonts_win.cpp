#include "app/SystemFonts.h"

namespace quillon
{

// The system keeps its list of fonts itself.
void postponeSystemFonts() {}

void admitSystemFonts() {}

} // namespace quillon
