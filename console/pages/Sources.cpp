#include "console/pages/Sources.h"

namespace quillon
{

namespace
{

enum Sides : std::uint8_t { ToLeft = 1, ToRight = 2, ToBoth = 3 };

struct SourceLevel {
    const char16_t* object; // that reports
    const char16_t* attribute;
    const char16_t* source; // of the menu
    Sides sides;
};

constexpr SourceLevel kLevels[]{
    {u"Input_IN1", u"Meter", u"IN 1", ToBoth},         {u"Input_IN1", u"Meter", u"IN 1+2", ToLeft},
    {u"Input_IN2", u"Meter", u"IN 2", ToBoth},         {u"Input_IN2", u"Meter", u"IN 1+2", ToRight},
    {u"Input_AUX", u"MeterLeft", u"AUX", ToLeft},      {u"Input_AUX", u"MeterRight", u"AUX", ToRight},
    {u"Input_BT", u"MeterLeft", u"BT", ToLeft},        {u"Input_BT", u"MeterRight", u"BT", ToRight},
    {u"Input_OTGIN", u"MeterLeft", u"OTG IN", ToLeft}, {u"Input_OTGIN", u"MeterRight", u"OTG IN", ToRight},
    {u"Effect", u"MeterOut", u"FX", ToBoth},
};
// These report under the name that the menu has.
constexpr const char16_t* kPairs[]{u"Mix A",        u"Mix B",        u"Mix C",        u"Mix D",        u"Mix E",
                                   u"Playback 1/2", u"Playback 3/4", u"Playback 5/6", u"Playback 7/8", u"Playback 9/10"};

void reportLevel(PageKit& kit, RouteStrip& strip, const SourceLevel& level)
{
    kit.report(level.object, level.attribute,
               [&strip, source = QStringView(level.source).toString(), sides = level.sides](const QVariant& value) {
                   if (strip.audioSource() != source) {
                       return;
                   }
                   if (sides & ToLeft) {
                       strip.setVolumeMeterLeft(value.toInt());
                   }
                   if (sides & ToRight) {
                       strip.setVolumeMeterRight(value.toInt());
                   }
               });
}

} // namespace

void reportSourceLevels(PageKit& kit, RouteStrip& strip)
{
    for (const SourceLevel& level : kLevels) {
        reportLevel(kit, strip, level);
    }
    for (const char16_t* pair : kPairs) {
        reportLevel(kit, strip, {pair, u"MeterLeft", pair, ToLeft});
        reportLevel(kit, strip, {pair, u"MeterRight", pair, ToRight});
    }
}

} // namespace quillon
