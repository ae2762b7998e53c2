#include "controls/group/PanelShape.h"

#include <algorithm>
#include <array>

namespace quillon
{
namespace
{
constexpr double kGap = 1.6; // between plates, in units of the minimum size
constexpr double kIconOfPlate = 0.7;

struct Cell {
    int row = 0;
    int column = 0;
};

/// The cell of a button; of the index behind the last one: the first cell below the panel.
Cell cellOf(const PanelShape& shape, int index)
{
    Cell cell;
    for (int i = 0; i < int(shape.buttons.size()); ++i) {
        const int span = shape.buttons[std::size_t(i)].span;
        if (cell.column + span > shape.columns) {
            cell = {cell.row + 1, 0};
        }
        if (i == index) {
            return cell;
        }
        cell.column += span;
    }
    return {cell.row + 1, 0};
}

constexpr PanelButton wide(PanelButton button, int span)
{
    button.span = span;
    return button;
}
constexpr PanelButton timed(PanelButton button)
{
    button.mouseEvents = true;
    return button;
}
constexpr PanelButton pictured(PanelButton button, const char* icon)
{
    button.icon = icon;
    return button;
}
constexpr PanelButton sided(PanelButton button, const char* name, PlateSide side)
{
    button.name = name;
    button.side = side;
    return button;
}
constexpr PanelButton plain(const char* name, const char* chinese)
{
    return {.name = name, .english = name, .chinese = chinese};
}
constexpr PanelButton input(const char* name, const char* caption)
{
    return {.name = name, .english = caption, .chinese = caption, .exclusive = true};
}

constexpr PanelButton kSolo{.name = "SOLO", .english = "SOLO", .chinese = "独奏", .tone = PlateTone::Amber};
constexpr PanelButton kMute{.name = "MUTE", .english = "MUTE", .chinese = "静音", .tone = PlateTone::Red};
constexpr PanelButton kAnti = plain("ANTI", "反相");
constexpr PanelButton k48V = plain("48V", "48V");
constexpr PanelButton kAuto = plain("AUTO", "自动");
constexpr PanelButton kEq = timed(plain("EQ", "均衡"));
constexpr PanelButton kDucking = timed(plain("DUCKING", "闪避"));
constexpr PanelButton kDuckingPlain{.name = "Ducking", .english = "DUCKING", .chinese = "闪避", .span = 2};

constexpr PanelButton kSoloLeft = sided(kSolo, "SOLOLeft", PlateSide::Left);
constexpr PanelButton kSoloRight = sided(kSolo, "SOLORight", PlateSide::Right);
constexpr PanelButton kMuteLeft = sided(kMute, "MUTELeft", PlateSide::Left);
constexpr PanelButton kMuteRight = sided(kMute, "MUTERight", PlateSide::Right);
constexpr PanelButton kAntiLeft = sided(kAnti, "ANTILeft", PlateSide::Left);
constexpr PanelButton kAntiRight = sided(kAnti, "ANTIRight", PlateSide::Right);

constexpr PanelButton kMic1 = input("Mic1", "Mic 1");
constexpr PanelButton kMic35 = input("Mic35", "Mic-35");
constexpr PanelButton kMicHP = input("MicHP", "Mic-HP");
constexpr PanelButton kMic1Icon = wide(pictured(kMic1, ":/Icon/InputXlr.svg"), 2);
constexpr PanelButton kMic35Icon = wide(pictured(kMic35, ":/Icon/InputJack.svg"), 2);
constexpr PanelButton kMicHPIcon = wide(pictured(kMicHP, ":/Icon/InputHeadset.svg"), 2);

constexpr PanelButton kIn1{.name = "IN1", .english = "IN 1", .chinese = "IN 1", .span = 2};
constexpr PanelButton kIn2{.name = "IN2", .english = "IN 2", .chinese = "IN 2", .span = 2};
constexpr PanelButton kIn12{.name = "IN12", .english = "IN 1+2", .chinese = "IN 1+2", .span = 2};
constexpr PanelButton kOff = wide(plain("OFF", "关"), 3);

constexpr std::array kSwitches3{k48V, kAuto, kDucking};
constexpr std::array kSoloMute{kSolo, kMute};
constexpr std::array kAntiOverSoloMute{wide(kAnti, 2), kSolo, kMute};
constexpr std::array kAntiSoloMute{kAnti, kSolo, kMute};
constexpr std::array kMuteAlone{kMute};
constexpr std::array kPhantomAuto{k48V, kAuto};
constexpr std::array kInputsIcons{kMic1Icon, kMic35Icon, kMicHPIcon};
constexpr std::array kInputs{kMic1, kMic35, kMicHP};
constexpr std::array kEqAlone{kEq};
constexpr std::array kSwitches4{k48V, kAuto, kEq, kDucking};
constexpr std::array kSwitchesEq{k48V, kAuto, kEq};

constexpr std::array kMicStrip{kMic1Icon, kMic35Icon, kMicHPIcon, k48V, kAuto, kDuckingPlain};
constexpr std::array kPhantomAutoDucking{k48V, kAuto, kDuckingPlain};
constexpr std::array kNoise{
    kIn1, kIn2, kIn12, kOff, wide(plain("NC1", "NC1"), 3), wide(plain("NC2", "NC2"), 3), wide(plain("NC3", "NC3"), 3)};
constexpr std::array kReverb{
    wide(plain("NC", "降噪"), 6),  kIn1, kIn2, kIn12, kOff, wide(plain("STU", "录音棚"), 3), wide(plain("LIVE", "现场"), 3),
    wide(plain("HALL", "大厅"), 3)};
constexpr std::array kSoloMutePairs{kSoloLeft, kSoloRight, kMuteLeft, kMuteRight};
constexpr std::array kMicMute{kMic1Icon, kMic35Icon, kMicHPIcon, k48V, kMute};
constexpr std::array kPhantomMute{k48V, kMute};
constexpr std::array kMicPhantomAuto{kMic1Icon, kMic35Icon, kMicHPIcon, k48V, kAuto};
constexpr std::array kSoloMuteOverAnti{kSolo, kMute, wide(kAnti, 2)};
constexpr std::array kAllPairs{kSoloLeft, kSoloRight, kMuteLeft, kMuteRight, kAntiLeft, kAntiRight};
constexpr std::array kMutePair{kMuteLeft, kMuteRight};

using enum PlateStyle;
constexpr PanelShape kGroups[]{
    {"S1M1", Shaded, false, 48, 37, 1, kSwitches3},
    {"S1M2", Shaded, false, 48, 16, 2, kSoloMute},
    {"S1M3", Shaded, false, 48, 33, 2, kAntiOverSoloMute},
    {"S1M4", Shaded, false, 12, 7, 1, kMuteAlone},
    {"S1M5", Shaded, false, 48, 24, 1, kPhantomAuto},
    {"S1M6", Shaded, true, 46, 34, 2, kInputsIcons},
    {"S1M7", Shaded, false, 24, 37, 1, kAntiSoloMute},
    {"S1M8", Shaded, false, 12, 7, 1, kMuteAlone},
    {"S1M9", Shaded, true, 30, 22, 1, kInputs},
    {"S1M10", Shaded, false, 12, 7, 1, kEqAlone},
    {"S1M11", Shaded, false, 48, 50, 1, kSwitches4},
    {"S1M12", Shaded, false, 48, 37, 1, kSwitchesEq},
};
constexpr PanelShape kPanels[]{
    {"S1M1", Flat, false, 48, 70, 2, kMicStrip},
    {"S1M2", Flat, false, 48, 16, 2, kSoloMute},
    {"S1M3", Flat, false, 48, 28, 2, kPhantomAutoDucking},
    {"S1M4", Flat, false, 60, 40, 6, kNoise},
    {"S1M5", Flat, false, 60, 54, 6, kReverb},
    {"S1M6", Flat, false, 48, 33, 2, kSoloMutePairs},
    {"S1M7", Flat, false, 24, 14, 1, kMuteAlone},
    {"S1M8", Flat, false, 48, 56, 2, kMicMute},
    {"S1M9", Flat, false, 48, 16, 2, kPhantomMute},
    {"S1M10", Flat, false, 48, 56, 2, kMicPhantomAuto},
    {"S1M11", Flat, false, 48, 33, 2, kSoloMuteOverAnti},
    {"S1M12", Flat, false, 48, 16, 2, kPhantomAuto},
    {"S1M13", Flat, false, 48, 50, 2, kAllPairs},
    {"S1M14", Flat, false, 48, 16, 2, kMutePair},
};
} // namespace

std::span<const PanelShape> groupShapes()
{
    return kGroups;
}

std::span<const PanelShape> panelShapes()
{
    return kPanels;
}

int indexOf(const PanelShape& shape, const QString& button)
{
    const auto at = std::find_if(shape.buttons.begin(), shape.buttons.end(),
                                 [&](const PanelButton& each) { return button == QLatin1StringView(each.name); });
    return at == shape.buttons.end() ? -1 : int(at - shape.buttons.begin());
}

PanelPlace panelPlace(const PanelShape& shape, int index, QSize size)
{
    const PanelButton& button = shape.buttons[std::size_t(index)];
    const Cell cell = cellOf(shape, index);
    const double unitX = size.width() / double(shape.width);
    const double unitY = size.height() / double(shape.height);
    const double pitchX = (shape.width + kGap) / shape.columns;
    const double pitchY = (shape.height + kGap) / cellOf(shape, int(shape.buttons.size())).row;
    // Each edge is rounded by itself, so that equal gaps stay equal to the pixel and the last plate ends with the panel.
    int left = qRound(unitX * pitchX * cell.column);
    const int top = qRound(unitY * pitchY * cell.row);
    const int right = qRound(unitX * (pitchX * (cell.column + button.span) - kGap));
    const int bottom = qRound(unitY * (pitchY * (cell.row + 1) - kGap));
    const int height = std::max(bottom - top, 1);
    QRect icon;
    if (button.icon) {
        const int side = qRound(height * kIconOfPlate);
        icon = {left, top + (height - side) / 2, side, side};
        left += qRound(side * 1.3);
    }
    return {{left, top, std::max(right - left, 1), height}, icon};
}

} // namespace quillon
