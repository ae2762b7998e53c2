#pragma once

#include "strips/effect/EffectBase.h"

/// Reverb: three modes with a room size each, the mix, the decay, and the bypass.
class EffectS1M4 final : public EffectBase
{
    Q_OBJECT
public:
    explicit EffectS1M4(const QString& objectName, QWidget* parent = nullptr);

    // Values of the device: shown and stored, not sent back.
    /// "STUDIO", "LIVE", "HALL" or "Bypass".
    void setReverbType(const QString& type) { deviceSetter(u"ReverbType")(type); }
    /// 0 dry to 100 wet.
    void setDryWet(float percent) { deviceSetter(u"DryWet")(percent); }
};
