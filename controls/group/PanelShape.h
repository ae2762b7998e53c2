#pragma once

// Every panel of push buttons as data: what stands on it, where, and in which look.

#include <QRectF>
#include <QStringList>

#include <span>

namespace quillon
{

/// What a lit plate means to the one who looks at it from two metres.
enum class PlateTone { Green, Amber, Red };
/// Shaded plates belong to the groups, flat ones to the panels of buttons.
enum class PlateStyle { Shaded, Flat };
/// Which channel of a stereo pair a button is for. Seen by its place, and told in its accessible name.
enum class PlateSide { None, Left, Right };

struct PanelButton {
    const char* name; ///< as strips know it
    const char* english;
    const char* chinese;
    PlateTone tone = PlateTone::Green;
    PlateSide side = PlateSide::None;
    int span = 1;               ///< columns it takes
    bool exclusive = false;     ///< one of a set of which exactly one is lit; a panel has one such set at most
    bool mouseEvents = false;   ///< single and double clicks are told apart
    const char* icon = nullptr; ///< resource name of a picture before the button
    bool momentary = false;     ///< a command: told on each press, never lit
};

/// One panel. Buttons are in bit order and flow into the grid row by row.
struct PanelShape {
    const char* member; ///< "S1M2"
    PlateStyle style;
    bool selector; ///< its state is the name of the selected button
    int width;     ///< minimum size, which strips take the ratio from
    int height;
    int columns;
    std::span<const PanelButton> buttons;
};

/// PushButtonGroupS1M1 and on.
std::span<const PanelShape> groupShapes();
/// PushButtonS1M1 and on.
std::span<const PanelShape> panelShapes();

/// Index of a button of that name, or -1.
int indexOf(const PanelShape& shape, const QString& button);

struct PanelPlace {
    QRect plate;
    QRect icon; ///< empty where the button has none
};
/// Where a button and its icon stand on a panel of a size, on whole pixels.
PanelPlace panelPlace(const PanelShape& shape, int index, QSize size);

} // namespace quillon
