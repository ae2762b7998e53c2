#include "equalizer/window/EqualizerS1M1.h"

#include "controls/VSliderS1M2.h"
#include "controls/VolumeMeterS1M5.h"
#include "equalizer/window/EqualizerPanelS1M1.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr float kDefaultGain = -38;
constexpr int kKnee = -10;
constexpr int kLowKnee = -52;

} // namespace

EqualizerS1M1::EqualizerS1M1(QWidget* parent)
    : EqualizerBase(u":/Icon/EqBackgroundOut.svg"_s, parent), mMeterInput(addMeter<VolumeMeterS1M5>(Input, "widgetMeter")),
      mMeterOutput(addMeter<VolumeMeterS1M5>(Output, "widgetMeter2")), mSliderInput(addFader<VSliderS1M2>(Input, "slider")),
      mSliderOutput(addFader<VSliderS1M2>(Output, "slider_2"))
{
    for (VolumeMeterS1M5* meter : {mMeterInput, mMeterOutput}) {
        meter->setHeightRatio(2, 1, 95, 2);
        meter->setWidthRatio(35, 15, 15, 10, 15);
    }
    mSliderInput->setLadder(0, kKnee, kLowKnee, -60);
    mSliderOutput->setLadder(9, kKnee, kLowKnee, -90);
    for (VSliderS1M2* slider : {mSliderInput, mSliderOutput}) {
        slider->setDefault(kDefaultGain);
        slider->setRatio(5, 4, 89);
    }
    connect(mSliderInput, &VSliderS1M2::valueChanged, this, [this](float gainDb) {
        panel().setPreGain(int(gainDb));
        const QString value = QString::number(int(gainDb));
        raise(u"GainInputLeft"_s, value);
        raise(u"GainInputRight"_s, value);
    });
    connect(mSliderOutput, &VSliderS1M2::valueChanged, this, [this](float gainDb) {
        const QString value = QString::number(int(gainDb));
        raise(u"GainOutputLeft"_s, value);
        raise(u"GainOutputRight"_s, value);
    });
}

void EqualizerS1M1::setGainInputLeft(float gainDb)
{
    mSliderInput->setValue(gainDb);
    panel().setPreGain(int(mSliderInput->value()));
}

void EqualizerS1M1::setGainInputRight(float gainDb)
{
    setGainInputLeft(gainDb);
}

void EqualizerS1M1::setGainOutputLeft(float gainDb)
{
    mSliderOutput->setValue(gainDb);
}

void EqualizerS1M1::setGainOutputRight(float gainDb)
{
    mSliderOutput->setValue(gainDb);
}

// The bars stand side by side, the gained one at the left of the one as measured: they are the channels.

void EqualizerS1M1::setVolumeMeterInputLeft(int tenthsOfDb)
{
    mMeterInput->setVolumeMeterGained(tenthsOfDb);
}

void EqualizerS1M1::setVolumeMeterInputRight(int tenthsOfDb)
{
    mMeterInput->setVolumeMeterOrigin(tenthsOfDb);
}

void EqualizerS1M1::setVolumeMeterOutputLeft(int tenthsOfDb)
{
    mMeterOutput->setVolumeMeterGained(tenthsOfDb);
}

void EqualizerS1M1::setVolumeMeterOutputRight(int tenthsOfDb)
{
    mMeterOutput->setVolumeMeterOrigin(tenthsOfDb);
}
