#pragma once

#include "console/effect/TypedLevel.h"

#include <array>
#include <memory>

class VolumeMeterS1M7;

/// Both effects of the device on one panel, with what is sent to them and what they give back: five levels, noise reduction,
/// reverb, the meters of the effect send and return, and the mute of the return. GUI thread.
class R47_PrivateWidget3 final : public EffectBase
{
    Q_OBJECT
public:
    explicit R47_PrivateWidget3(const QString& objectName, QWidget* parent = nullptr);

    // Values of the device: shown and stored, not sent back.
    /// "Bypass", "NC1", "NC2" or "NC3".
    void setNoiseReductionType(QString type) { deviceSetter(u"NoiseReductionType")(type); }
    /// "Bypass", "STUDIO", "LIVE" or "HALL".
    void setReverbType(QString type) { deviceSetter(u"ReverbType")(type); }
    /// 0 dry to 100 wet.
    void setDryWet(float percent) { deviceSetter(u"DryWet")(percent); }
    // Tenths of a dB, 1 for clip.
    void setFxInMeter(int tenthsOfDb);
    void setFxOutMeter(int tenthsOfDb);

    quillon::DeviceSetter deviceSetter(QStringView attribute) override;

private:
    quillon::ButtonPanel* addButtons(const quillon::PanelShape& shape, const char* objectName, const quillon::Place& place,
                                     const quillon::StripText& meaning);
    void addFaders();
    void addNoise();
    void addReverb();
    void addReturn();

    std::array<std::unique_ptr<quillon::TypedLevel>, 2> mProcessors; // noise reduction, reverb
    quillon::PanelPort mMute;
    VolumeMeterS1M7* mMeter = nullptr;
};
