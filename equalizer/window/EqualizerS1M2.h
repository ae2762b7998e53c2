#pragma once

#include "equalizer/window/EqualizerBase.h"

class VSliderS1M1;
class VolumeMeterS1M6;

/// The window of a microphone's equalizer: one channel, its gain behind the curve. GUI thread.
class EqualizerS1M2 final : public EqualizerBase
{
    Q_OBJECT
public:
    explicit EqualizerS1M2(QWidget* parent = nullptr);

    /// The bands, and of their curves the combined one alone is seen.
    void setItemCount(qint32 count) override;

    void setGainInputLeft(float) override {}
    void setGainInputRight(float) override {}
    void setGainOutputLeft(float gainDb) override;
    void setGainOutputRight(float gainDb) override;
    void setVolumeMeterInputLeft(int tenthsOfDb) override;
    void setVolumeMeterInputRight(int tenthsOfDb) override;
    void setVolumeMeterOutputLeft(int tenthsOfDb) override;
    void setVolumeMeterOutputRight(int tenthsOfDb) override;

private:
    VolumeMeterS1M6* mMeterInput;
    VolumeMeterS1M6* mMeterOutput;
    VSliderS1M1* mSlider;
};
