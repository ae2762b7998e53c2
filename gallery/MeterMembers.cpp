#include "controls/VolumeMeterS1M1.h"
#include "controls/VolumeMeterS1M2.h"
#include "controls/VolumeMeterS1M3.h"
#include "controls/VolumeMeterS1M4.h"
#include "controls/VolumeMeterS1M5.h"
#include "controls/VolumeMeterS1M6.h"
#include "controls/VolumeMeterS1M7.h"
#include "controls/VolumeMeterS1M8.h"
#include "controls/VolumeMeterS2M1.h"
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
    const auto without = [&looks](const Words& state, void (*hide)(Meter&)) {
        looks << still<Meter>(state, -120, -180);
        looks.last().prepare = hide;
    };
    if constexpr (requires(Meter & it) { it.setScaleLinesHidden(true); })
        without({"No ticks", "无刻度线"}, [](Meter& it) { it.setScaleLinesHidden(true); });
    if constexpr (requires(Meter & it) { it.setGainedHidden(true); }) {
        without({"Origin only", "仅原始"}, [](Meter& it) { it.setGainedHidden(true); });
        without({"Gained only", "仅增益"}, [](Meter& it) { it.setOriginHidden(true); });
        without({"No labels", "无刻度值"}, [](Meter& it) { it.setScaleLabelsHidden(true); });
    }
    return member<Meter>(className, size, looks, {});
}

} // namespace

QList<Member> meterMembers()
{
    return {
        meter<VolumeMeterS1M1>("VolumeMeterS1M1", {52, 220}), meter<VolumeMeterS1M2>("VolumeMeterS1M2", {100, 220}),
        meter<VolumeMeterS1M3>("VolumeMeterS1M3", {78, 220}), meter<VolumeMeterS1M4>("VolumeMeterS1M4", {44, 220}),
        meter<VolumeMeterS1M5>("VolumeMeterS1M5", {44, 220}), meter<VolumeMeterS1M6>("VolumeMeterS1M6", {52, 220}),
        meter<VolumeMeterS1M7>("VolumeMeterS1M7", {72, 220}), meter<VolumeMeterS1M8>("VolumeMeterS1M8", {72, 220}),
        meter<VolumeMeterS2M1>("VolumeMeterS2M1", {270, 66}),
    };
}

} // namespace quillon::gallery
