#include "strips/mixer/MixerS1M2.h"

#include "controls/PushButtonGroups.h"
#include "strips/mixer/StereoMixerShape.h"

MixerS1M2::MixerS1M2(const QString& objectName, QWidget* parent) : MixerBase(quillon::kStereoMixerShape, objectName, parent)
{
    addLinkedFader();
    addButtons(Both, new PushButtonGroupS1M2(this));
    declare();
}

quillon::MixGains MixerS1M2::gains(const quillon::MixPair& channels) const
{
    return quillon::straightGains(channels[0]);
}
