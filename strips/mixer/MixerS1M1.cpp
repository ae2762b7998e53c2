#include "strips/mixer/MixerS1M1.h"

#include "controls/DialS1M3.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr quillon::Place kUnlinkButtons{20.1F, 81.0F, 59.8F, 0.0F};
constexpr quillon::MixerShape kShape{
    .minimum = {80, 220},
    .linkedMeters = {{4.0F, 17.0F, 38.0F, 54.0F, quillon::From::NameRow}, {58.0F, 17.0F, 38.0F, 54.0F, quillon::From::NameRow}},
    .faders = {{42.0F, 17.0F, 16.0F, 54.0F, quillon::From::NameRow},
               {4.0F, 17.0F, 18.0F, 54.0F, quillon::From::NameRow},
               {78.0F, 17.0F, 18.0F, 54.0F, quillon::From::NameRow}},
    .groups = {{20.1F, 82.5F, 59.8F, 0.0F}, kUnlinkButtons, kUnlinkButtons},
    .linkedWidths = {50, 6, 20, 12, 12},
    .heights = {2, 2, 94, 2},
    .unlinkMeter = {24.0F, 17.0F, 52.0F, 54.0F, quillon::From::NameRow},
    .dials = {{5.0F, 2.0F, 30.0F, 13.0F, quillon::From::NameRow}, {65.0F, 2.0F, 30.0F, 13.0F, quillon::From::NameRow}},
    .link = {35.0F, 5.5F, 30.0F, 6.0F, quillon::From::NameRow},
    .unlinkWidths = {7, 8, 12, 8, 30}};

/// The buttons of one channel on a panel for both.
quillon::PanelPort channelPort(PushButtonS1M6* panel, const QString& channel)
{
    quillon::PanelPort port = quillon::panelPort(panel);
    port.setState = [panel, channel](const QString& button, const QString& state, bool emitSignal) {
        panel->setState(button + channel, state, emitSignal);
    };
    port.getState = [panel, channel](const QString& button) { return panel->getState(button + channel); };
    return port;
}

} // namespace

MixerS1M1::MixerS1M1(const QString& objectName, QWidget* parent) : MixerBase(kShape, objectName, parent)
{
    addDials<DialS1M3>();
    addLinkButton();
    addLinkedFader();
    addUnlinkFaders();
    auto* both = new PushButtonS1M2(this);
    connect(both, &PushButtonS1M2::buttonStateChanged, this, &MixerS1M1::in_widgetPushButtonGroup1_buttonStateChanged);
    adoptButtons(Both, quillon::panelPort(both), "widgetPushButtonGroup1");
    auto* pair = new PushButtonS1M6(this);
    connect(pair, &PushButtonS1M6::buttonStateChanged, this, &MixerS1M1::in_widgetPushButtonGroup2_buttonStateChanged);
    adoptButtons(Left, channelPort(pair, u"Left"_s), "widgetPushButtonGroup2");
    adoptButtons(Right, channelPort(pair, u"Right"_s), "widgetPushButtonGroup2");
    declare();
}

void MixerS1M1::in_widgetPushButtonGroup1_buttonStateChanged(PushButtonS1M2::ButtonID button, bool)
{
    buttonChanged(Both, button == PushButtonS1M2::SOLO ? u"SOLO"_s : u"MUTE"_s);
}

void MixerS1M1::in_widgetPushButtonGroup2_buttonStateChanged(PushButtonS1M6::ButtonID button, bool)
{
    const bool left = button == PushButtonS1M6::SOLOLeft || button == PushButtonS1M6::MUTELeft;
    const bool solo = button == PushButtonS1M6::SOLOLeft || button == PushButtonS1M6::SOLORight;
    buttonChanged(left ? Left : Right, solo ? u"SOLO"_s : u"MUTE"_s);
}

quillon::MixGains MixerS1M1::gains(const quillon::MixPair& channels) const
{
    return quillon::balancedGains(channels);
}
