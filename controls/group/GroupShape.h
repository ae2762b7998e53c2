#pragma once

// The button groups as data: shared by the widgets and by the tool that draws their pictures, so that a plate in a picture
// and the button over it cannot drift apart. No widget and no Qt class in here.

#include <array>
#include <cstddef>
#include <span>

namespace quillon
{

enum class GroupKind { OnOff, Selector };

/// What a lit plate means to the one who looks at it from two metres.
enum class PlateTone { Amber, Red, Green };

/// One button: name as strips know it, captions, colour when lit, and whether single and double clicks are told apart.
struct GroupButton {
    const char* name;
    const char* english;
    const char* chinese;
    PlateTone tone;
    bool mouseEvents;
};

/// One family of pictures: its buttons in bit order in a grid, and the picture's number for each state.
///
/// The state of an on-off group is the bit set of lit buttons, that of a selector the place of the selected one from 1, or 0.
struct GroupShape {
    const char* family;
    GroupKind kind;
    int width; ///< minimum size, which is the picture's ratio as well
    int height;
    int columns;
    double gap; ///< between plates, in units of the minimum size
    std::span<const GroupButton> buttons;
    std::span<const unsigned char> imageByState;
};

struct PlateRect {
    double x, y, width, height;
};

constexpr int rowsOf(const GroupShape& shape)
{
    return (static_cast<int>(shape.buttons.size()) + shape.columns - 1) / shape.columns;
}

/// The plate of a button, in fractions of the group's width and height.
constexpr PlateRect plateRect(const GroupShape& shape, int index)
{
    const int rows = rowsOf(shape);
    const double gapX = shape.gap / shape.width;
    const double gapY = shape.gap / shape.height;
    const double w = (1.0 - gapX * (shape.columns - 1)) / shape.columns;
    const double h = (1.0 - gapY * (rows - 1)) / rows;
    const int column = index % shape.columns;
    const int row = index / shape.columns;
    return {(w + gapX) * column, (h + gapY) * row, w, h};
}

/// A lit plate shows a lamp as well, so that colour is never the only sign: at the left of a wide plate, at the foot of others.
/// The caption keeps clear of it.
constexpr bool lampAtFoot(const GroupShape& shape)
{
    const PlateRect plate = plateRect(shape, 0);
    return plate.width * shape.width <= 2.2 * plate.height * shape.height;
}

/// Whether a button is lit in a state of its group.
constexpr bool isLit(const GroupShape& shape, unsigned state, int index)
{
    return shape.kind == GroupKind::Selector ? state == unsigned(index) + 1 : (state >> index & 1u) != 0;
}

inline constexpr std::array kButtonsS1M2{
    GroupButton{"SOLO", "SOLO", "独奏", PlateTone::Amber, false},
    GroupButton{"MUTE", "MUTE", "静音", PlateTone::Red, false},
};
inline constexpr std::array<unsigned char, 4> kImagesS1M2{0, 2, 3, 1};
inline constexpr GroupShape kGroupS1M2{"PBG4", GroupKind::OnOff, 48, 16, 2, 2.0, kButtonsS1M2, kImagesS1M2};

inline constexpr std::array kButtonsS1M9{
    GroupButton{"Mic1", "Mic 1", "Mic 1", PlateTone::Green, false},
    GroupButton{"Mic35", "Mic-35", "Mic-35", PlateTone::Green, false},
    GroupButton{"MicHP", "Mic-HP", "Mic-HP", PlateTone::Green, false},
};
inline constexpr std::array<unsigned char, 4> kImagesS1M9{0, 1, 2, 3};
inline constexpr GroupShape kGroupS1M9{"PBG13", GroupKind::Selector, 30, 22, 1, 1.0, kButtonsS1M9, kImagesS1M9};

inline constexpr std::array kButtonsS1M11{
    GroupButton{"48V", "48V", "48V", PlateTone::Green, false},
    GroupButton{"AUTO", "AUTO", "自动", PlateTone::Green, false},
    GroupButton{"EQ", "EQ", "均衡", PlateTone::Green, true},
    GroupButton{"DUCKING", "DUCKING", "闪避", PlateTone::Green, true},
};
inline constexpr std::array<unsigned char, 16> kImagesS1M11{0, 1, 9, 2, 13, 8, 10, 3, 15, 6, 12, 5, 14, 7, 11, 4};
inline constexpr GroupShape kGroupS1M11{"PBG15", GroupKind::OnOff, 48, 50, 1, 1.6, kButtonsS1M11, kImagesS1M11};

/// Every family that has pictures; the drawing tool walks it.
inline constexpr std::array<const GroupShape*, 3> kGroups{&kGroupS1M2, &kGroupS1M9, &kGroupS1M11};

} // namespace quillon
