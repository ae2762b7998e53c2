#pragma once

#include "strips/effect/EffectBase.h"

/// Noise reduction: two modes with a level each, and the bypass.
class EffectS1M3 final : public EffectBase
{
    Q_OBJECT
public:
    explicit EffectS1M3(const QString& objectName, QWidget* parent = nullptr);

    // Values of the device: shown and stored, not sent back.
    /// "NC1", "NC2" or "Bypass".
    void setNoiseReductionType(const QString& type) { deviceSetter(u"NoiseReductionType")(type); }

protected:
    void raise(const QString& attribute, const QString& value) override;

private:
    std::array<int, 3> mSent; // level last sent in each mode
};
