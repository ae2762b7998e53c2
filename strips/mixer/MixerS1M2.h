#pragma once

#include "strips/mixer/MixerBase.h"

/// A stereo source: one fader, left to left and right to right.
class MixerS1M2 final : public MixerBase
{
    Q_OBJECT
public:
    explicit MixerS1M2(const QString& objectName, QWidget* parent = nullptr);

protected:
    quillon::MixGains gains(const quillon::MixPair& channels) const override;
};
