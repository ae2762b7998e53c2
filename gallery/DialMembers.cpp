#include "controls/DialS1M1.h"
#include "controls/DialS1M2.h"
#include "controls/DialS1M3.h"
#include "controls/DialS1M4.h"
#include "controls/DialS1M5.h"
#include "controls/DialS1M6.h"
#include "gallery/Member.h"

namespace quillon::gallery
{

namespace
{

constexpr QSize kSize{78, 78};
constexpr Words kMinimum{"Minimum", "最小"}, kMiddle{"Middle", "中间"}, kMaximum{"Maximum", "最大"},
    kCentreArc{"Centre arc", "中心弧"}, kInfinity{"Infinity", "无穷"}, kList{"List", "列表"}, kDecimals{"Decimals", "小数"},
    kBare{"No text", "无文字"};

/// Dials with plain steps: -50 to 50 with a sign.
template<typename Dial> QList<Look<Dial>> plainLooks()
{
    const auto at = [](const Words& state, float value, const std::function<void(Dial&)>& more = {}) {
        return Look<Dial>{state, [value, more](Dial& dial) {
                              dial.setRange(-50, 50);
                              dial.setDefault(0);
                              dial.setSignShown(true);
                              dial.setValue(value);
                              if (more)
                                  more(dial);
                          }};
    };
    return {
        at(kMiddle, 12),
        at(kMinimum, -50),
        at(kMaximum, 50),
        at(kCentreArc, 24, [](Dial& dial) { dial.setCentreArc(true); }),
        at(kInfinity, -50, [](Dial& dial) { dial.setMinusInfinity(true); }),
        at(kDecimals, 7.5F, [](Dial& dial) { dial.setPrecision(1); }),
        at(kBare, 30, [](Dial& dial) { dial.setTextVisible(false); }),
    };
}

/// Dials for a level in dB: -90 to 9.
template<typename Dial> QList<Look<Dial>> ladderLooks()
{
    const auto at = [](const Words& state, float value, const std::function<void(Dial&)>& more = {}) {
        return Look<Dial>{state, [value, more](Dial& dial) {
                              dial.setLadder(9, -10, -52, -90);
                              dial.setDefault(0);
                              dial.setValue(value);
                              if (more)
                                  more(dial);
                          }};
    };
    QList<Look<Dial>> looks{
        at(kMiddle, -24),
        at(kMinimum, -90),
        at(kMaximum, 9),
        at(kDecimals, -4.5F),
        at(kInfinity, -90, [](Dial& dial) { dial.setMinusInfinity(true); }),
        at(kBare, -12, [](Dial& dial) { dial.setTextVisible(false); }),
    };
    if constexpr (requires(Dial & dial) { dial.setCentreArc(true); })
        looks << at(kCentreArc, -12, [](Dial& dial) { dial.setCentreArc(true); });
    return looks;
}

template<typename Dial> Member plain(const char* className)
{
    QList<Look<Dial>> looks = plainLooks<Dial>();
    if constexpr (requires(Dial & dial) { dial.setValueList({}); })
        looks << Look<Dial>{kList, [](Dial& dial) {
                                dial.setMode(1);
                                dial.setValueList({20, 40, 80, 160, 320, 640});
                                dial.setValue(80);
                            }};
    return member<Dial>(className, kSize, looks, {Touch::Focus, Touch::Disabled});
}

template<typename Dial> Member ladder(const char* className)
{
    return member<Dial>(className, kSize, ladderLooks<Dial>(), {Touch::Focus, Touch::Disabled});
}

} // namespace

QList<Member> dialMembers()
{
    return {
        plain<DialS1M1>("DialS1M1"),  ladder<DialS1M2>("DialS1M2"), plain<DialS1M3>("DialS1M3"),
        ladder<DialS1M4>("DialS1M4"), plain<DialS1M5>("DialS1M5"),  ladder<DialS1M6>("DialS1M6"),
    };
}

} // namespace quillon::gallery
