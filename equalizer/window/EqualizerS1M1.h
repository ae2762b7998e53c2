#pragma once

#include "equalizer/window/EqualizerBase.h"

class VSliderS1M2;
class VolumeMeterS1M5;

/// The window of the headphones' equalizer: both channels with one curve, levels and gains before and behind it. GUI thread.
class EqualizerS1M1 final : public EqualizerBase
{
    Q_OBJECT
public:
    explicit EqualizerS1M1(QWidget* parent = nullptr);

    /// Moves the curves as well.
    void setGainInputLeft(float gainDb) override;
    void setGainInputRight(float gainDb) override;
    void setGainOutputLeft(float gainDb) override;
    void setGainOutputRight(float gainDb) override;
    void setVolumeMeterInputLeft(int tenthsOfDb) override;
    void setVolumeMeterInputRight(int tenthsOfDb) override;
    void setVolumeMeterOutputLeft(int tenthsOfDb) override;
    void setVolumeMeterOutputRight(int tenthsOfDb) override;

private:
    VolumeMeterS1M5* mMeterInput;
    VolumeMeterS1M5* mMeterOutput;
    VSliderS1M2* mSliderInput;
    VSliderS1M2* mSliderOutput;
};
