#include "controls/HSliderS1M1.h"
#include "controls/HSliderS2M1.h"
#include "controls/VSliderS1M1.h"
#include "controls/VSliderS1M2.h"
#include "gallery/Member.h"

namespace quillon::gallery
{

namespace
{

/// The balance slider: 0 to 200.
Member balance()
{
    const auto at = [](const Words& state, float value) {
        return Look<HSliderS1M1>{state, [value](HSliderS1M1& slider) { slider.setValue(value); }};
    };
    return member<HSliderS1M1>("HSliderS1M1", {112, 48},
                               {at({"Centre", "居中"}, 100), at({"Left", "最左"}, 0), at({"Partly left", "偏左"}, 60),
                                at({"Partly right", "偏右"}, 145), at({"Right", "最右"}, 200)},
                               {Touch::Focus, Touch::Disabled});
}

/// The faders: -90 to 12 dB.
template<typename Fader> Member fader(const char* className, QSize size)
{
    const auto at = [](const Words& state, int value, bool infinity = false) {
        return Look<Fader>{state, [value, infinity](Fader& fader) {
                               if constexpr (requires { fader.setLadder(12, -10, -52, -90); })
                                   fader.setLadder(12, -10, -52, -90);
                               else
                                   fader.setRange(-90, 12);
                               fader.setMinusInfinity(infinity);
                               fader.setValue(value);
                           }};
    };
    return member<Fader>(className, size,
                         {at({"Zero", "零"}, 0), at({"Minimum", "最小"}, -90), at({"Infinity", "无穷"}, -90, true),
                          at({"Low", "低"}, -40), at({"High", "高"}, 6), at({"Maximum", "最大"}, 12)},
                         {Touch::Focus, Touch::Disabled});
}

} // namespace

QList<Member> sliderMembers()
{
    return {
        balance(),
        fader<HSliderS2M1>("HSliderS2M1", {220, 34}),
        fader<VSliderS1M1>("VSliderS1M1", {60, 220}),
        fader<VSliderS1M2>("VSliderS1M2", {60, 220}),
    };
}

} // namespace quillon::gallery
