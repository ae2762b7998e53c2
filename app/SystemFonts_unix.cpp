#include "app/SystemFonts.h"

#include <fontconfig/fontconfig.h>

namespace quillon
{

void postponeSystemFonts()
{
    FcConfig* none = FcConfigCreate();
    if (none) {
        FcConfigSetCurrent(none);
        FcConfigDestroy(none); // the library holds it from here on
    }
}

void admitSystemFonts()
{
    FcConfig* system = FcInitLoadConfigAndFonts();
    if (system) {
        FcConfigSetCurrent(system);
        FcConfigDestroy(system);
    }
}

} // namespace quillon
