#include "strips/effect/EffectS1M1.h"

#include "controls/PushButtons.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr quillon::EffectShape kShape{
    .minimum = {110, 220}, .title = {"Noise Reduction", "降噪"}, .typeKey = "NCType", .levelKey = "GAIN", .modes = {}};

} // namespace

EffectS1M1::EffectS1M1(const QString& objectName, QWidget* parent) : ChannelEffect(kShape, objectName, parent)
{
    addButtons(new PushButtonS1M4(this), {4.0F, 11.0F, 92.0F, 0.0F});
    declareChoice(u"NCChannel"_s, {u"IN1"_s, u"IN2"_s, u"IN12"_s});
    declareChoice(u"NCType"_s, {u"OFF"_s, u"NC1"_s, u"NC2"_s, u"NC3"_s});
    addLevel({8.0F, 44.0F, 30.0F, 41.0F}, {46.0F, 52.0F, 44.0F, 23.0F}, {34.0F, 88.0F, 32.0F, 0.0F});
}
