#include "resources/Resources.h"

#include <QtGlobal>

// Defined by the resource compiler under the names of its two lists.
int qInitResources_art();
#ifdef QUILLON_FONTS
int qInitResources_fonts();
#endif

namespace quillon
{
void initResources()
{
    [[maybe_unused]] static const bool done = [] {
        qInitResources_art();
#ifdef QUILLON_FONTS
        qInitResources_fonts();
#endif
        return true;
    }();
}
} // namespace quillon
