#pragma once

#include "strips/mixer/MixerBase.h"

/// Two microphones: one fader, each to both sides, placed by the balances of their own strips.
class MixerS1M3 final : public MixerBase
{
    Q_OBJECT
public:
    explicit MixerS1M3(const QString& objectName, QWidget* parent = nullptr);

    /// The place of a microphone between the sides: 0 to 200, 100 for the centre. Not kept in the workspace. resend: every mix
    /// gets its new gains at once.
    void setBalanceLeft(int balance, bool resend) { setBalance(0, balance, resend); }
    void setBalanceRight(int balance, bool resend) { setBalance(1, balance, resend); }

protected:
    quillon::MixGains gains(const quillon::MixPair& channels) const override;

private:
    void setBalance(std::size_t channel, int balance, bool resend);

    std::array<int, 2> mBalances{100, 100};
};
