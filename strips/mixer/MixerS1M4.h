#pragma once

#include "strips/mixer/MixerBase.h"

/// A source whose channels can be unlinked: balances, polarity, a fader for both or one for each.
class MixerS1M4 final : public MixerBase
{
    Q_OBJECT
public:
    explicit MixerS1M4(const QString& objectName, QWidget* parent = nullptr);

protected:
    quillon::MixGains gains(const quillon::MixPair& channels) const override;
};
