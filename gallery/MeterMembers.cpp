#include "controls/VolumeMeterS1M1.h"
#include "controls/VolumeMeterS1M2.h"
#include "gallery/Member.h"

namespace quillon::gallery
{

namespace
{

/// The feeds of the family differ only in sides and in whether a gain goes with the level.
template<typename Meter> void show(Meter& meter, const Levels& levels)
{
    if constexpr (requires { meter.setVolumeMeter(0, 0); }) {
        meter.setVolumeMeter(levels.left, levels.gainDb);
    } else if constexpr (requires { meter.setVolumeMeter(0); }) {
        meter.setVolumeMeter(levels.left);
    } else if constexpr (requires { meter.setVolumeMeterLeft(0, 0); }) {
        meter.setVolumeMeterLeft(levels.left, levels.gainDb);
        meter.setVolumeMeterRight(levels.right, levels.gainDb);
    } else {
        meter.setVolumeMeterLeft(levels.left);
        meter.setVolumeMeterRight(levels.right);
    }
}

template<typename Meter> Look<Meter> still(const Words& state, int left, int right)
{
    return {state, {}, [left, right](Meter& meter, const Levels&) { show(meter, {left, right, 6}); }};
}

template<typename Meter> Member meter(const char* className, QSize size)
{
    QList<Look<Meter>> looks{
        {{"Live", "实时"}, {}, show<Meter>},          still<Meter>({"Floor", "最低"}, -900, -900),
        still<Meter>({"Middle", "中间"}, -240, -300), still<Meter>({"High", "高"}, -70, -110),
        still<Meter>({"Clip", "削波"}, 1, -5),
    };
    if constexpr (requires(Meter & it) { it.setScaleLinesHidden(true); }) {
        looks << still<Meter>({"No ticks", "无刻度线"}, -120, -180);
        looks.last().prepare = [](Meter& it) { it.setScaleLinesHidden(true); };
    }
    if constexpr (requires(Meter & it) { it.setGainedHidden(true); }) {
        looks << still<Meter>({"Origin only", "仅原始"}, -120, -180);
        looks.last().prepare = [](Meter& it) { it.setGainedHidden(true); };
    }
    return member<Meter>(className, size, looks, Touched::No);
}

} // namespace

QList<Member> meterMembers()
{
    return {
        meter<VolumeMeterS1M1>("VolumeMeterS1M1", {62, 190}),
        meter<VolumeMeterS1M2>("VolumeMeterS1M2", {96, 190}),
    };
}

} // namespace quillon::gallery
