#include "strips/mixer/MixerS1M4.h"

#include "controls/DialS1M5.h"
#include "controls/PushButtonGroups.h"

namespace
{

constexpr quillon::MixerShape kShape{
    .minimum = {80, 220},
    .linkedMeters = {{4.0F, 17.0F, 38.0F, 54.0F, quillon::From::NameRow}, {58.0F, 17.0F, 38.0F, 54.0F, quillon::From::NameRow}},
    .faders = {{42.0F, 17.0F, 16.0F, 54.0F, quillon::From::NameRow},
               {4.0F, 17.0F, 18.0F, 54.0F, quillon::From::NameRow},
               {78.0F, 17.0F, 18.0F, 54.0F, quillon::From::NameRow}},
    .groups = {{20.1F, 81.0F, 59.8F, 0.0F}, {8.0F, 81.0F, 38.0F, 17.5F}, {54.0F, 81.0F, 38.0F, 17.5F}},
    .linkedWidths = {44, 6, 20, 16, 14},
    .heights = {2, 2, 94, 2},
    .unlinkMeter = {24.0F, 17.0F, 52.0F, 54.0F, quillon::From::NameRow},
    .dials = {{5.0F, 2.0F, 30.0F, 13.0F, quillon::From::NameRow}, {65.0F, 2.0F, 30.0F, 13.0F, quillon::From::NameRow}},
    .link = {35.0F, 5.5F, 30.0F, 6.0F, quillon::From::NameRow},
    .unlinkWidths = {9, 6, 12, 9, 28}};

} // namespace

MixerS1M4::MixerS1M4(const QString& objectName, QWidget* parent) : MixerBase(kShape, objectName, parent)
{
    addDials<DialS1M5>();
    addLinkButton();
    addLinkedFader();
    addUnlinkFaders();
    addButtons(Both, new PushButtonGroupS1M3(this));
    addButtons(Left, new PushButtonGroupS1M7(this));
    addButtons(Right, new PushButtonGroupS1M7(this));
    declare();
}

quillon::MixGains MixerS1M4::gains(const quillon::MixPair& channels) const
{
    return quillon::balancedGains(channels);
}
