#include "strips/loopback/LoopbackBase.h"

#include "controls/VSliderS1M1.h"

namespace
{

constexpr int kMinimumDb = -90;
constexpr int kMaximumDb = 0;

constexpr quillon::RouteKind kKind{.gainForm = quillon::ValueForm::Integer,
                                   .muteGain = kMinimumDb,
                                   .muteByGain = true,
                                   .decaysWithSource = true,
                                   .linkDefault = false};

} // namespace

LoopbackBase::LoopbackBase(const quillon::RouteShape& shape, const QString& objectName, QWidget* parent)
    : RouteStrip(kKind, shape, objectName, parent)
{
    build<VSliderS1M1>([](VSliderS1M1* fader) {
        fader->setRange(kMinimumDb, kMaximumDb);
        fader->setDefault(0);
        fader->setRatio(6, 4, 90);
        fader->setMinusInfinity(true);
    });
}
