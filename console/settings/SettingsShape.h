#pragma once
// What a page of the settings dialog consists of: its table of rows.

#include "controls/MessageBoxParts.h"

#include <span>

namespace quillon
{

/// A choice of a combo box: what it stands for, and how it reads.
struct RowChoice {
    const char16_t* data;
    BoxText text;
};

enum class RowKind {
    Combo,  ///< its value is the data of the choice
    Switch, ///< its value is "0" or "1"
    Button, ///< its value is "1"
    Text,   ///< told only, with a button behind it when there is something to do
};

/// A label at the left, a control at the right.
struct RowShape {
    const char16_t* name; ///< of the control
    BoxText label;
    RowKind kind;
    std::span<const RowChoice> choices = {}; ///< of a combo box; none: they are given while the program runs
    BoxText caption = {};                    ///< of a button
};

} // namespace quillon
