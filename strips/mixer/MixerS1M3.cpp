#include "strips/mixer/MixerS1M3.h"

#include "controls/PushButtonGroups.h"
#include "strips/mixer/StereoMixerShape.h"

MixerS1M3::MixerS1M3(const QString& objectName, QWidget* parent) : MixerBase(quillon::kStereoMixerShape, objectName, parent)
{
    addLinkedFader();
    addButtons(Both, new PushButtonGroupS1M2(this));
    declare();
}

void MixerS1M3::setBalance(std::size_t channel, int balance, bool resend)
{
    mBalances[channel] = balance;
    if (resend) {
        updateAllMixes();
    }
}

quillon::MixGains MixerS1M3::gains(const quillon::MixPair& channels) const
{
    return quillon::sharedGains(channels[0], mBalances);
}
