#pragma once

#include "console/menu/WorkModeMenu.h"

namespace quillon
{

/// The groups of all menus: what the Mobile and the Live mode have, of which the Pro mode has the presets only.
std::span<const MenuGroup> sceneAndPresetGroups();
std::span<const MenuGroup> presetGroups();

} // namespace quillon
