#pragma once

#include "strips/effect/ChannelEffect.h"

/// Noise reduction of a chosen microphone.
class EffectS1M1 final : public ChannelEffect
{
    Q_OBJECT
public:
    explicit EffectS1M1(const QString& objectName, QWidget* parent = nullptr);
};
