#include "equalizer/window/EqualizerS1M2.h"

#include "controls/VSliderS1M1.h"
#include "controls/VolumeMeterS1M6.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kMinimumGain = -90;
constexpr int kMaximumGain = 12;

} // namespace

EqualizerS1M2::EqualizerS1M2(QWidget* parent)
    : EqualizerBase(u":/Icon/EqBackgroundIn.svg"_s, parent), mMeterInput(addMeter<VolumeMeterS1M6>(Input, "widgetMeter")),
      mMeterOutput(addMeter<VolumeMeterS1M6>(Output, "widgetMeter2")), mSlider(addFader<VSliderS1M1>(Output, "slider"))
{
    for (VolumeMeterS1M6* meter : {mMeterInput, mMeterOutput}) {
        meter->setWidthRatio(15, 18, 35);
        meter->setHeightRatio(1, 1, 92, 2);
    }
    mSlider->setRange(kMinimumGain, kMaximumGain);
    mSlider->setRatio(5, 4, 89);
    mSlider->setValue(0);
    connect(mSlider, &VSliderS1M1::valueChanged, this, [this](int gainDb) { raise(u"Gain"_s, QString::number(gainDb)); });
}

void EqualizerS1M2::setItemCount(qint32 count)
{
    EqualizerBase::setItemCount(count);
    setStateTarget(false);
    setStateSource(false);
    setStateEachFilter(false);
    setStateCombined(true);
    setStateFiltered(false);
}

void EqualizerS1M2::setGainOutputLeft(float gainDb)
{
    if (!std::isnan(gainDb)) {
        mSlider->setValue(int(std::clamp(gainDb, float(kMinimumGain), float(kMaximumGain))));
    }
}

void EqualizerS1M2::setGainOutputRight(float gainDb)
{
    setGainOutputLeft(gainDb);
}

void EqualizerS1M2::setVolumeMeterInputLeft(int tenthsOfDb)
{
    mMeterInput->setVolumeMeter(tenthsOfDb);
}

void EqualizerS1M2::setVolumeMeterInputRight(int tenthsOfDb)
{
    mMeterInput->setVolumeMeter(tenthsOfDb);
}

void EqualizerS1M2::setVolumeMeterOutputLeft(int tenthsOfDb)
{
    mMeterOutput->setVolumeMeter(tenthsOfDb);
}

void EqualizerS1M2::setVolumeMeterOutputRight(int tenthsOfDb)
{
    mMeterOutput->setVolumeMeter(tenthsOfDb);
}
