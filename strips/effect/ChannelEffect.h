#pragma once

#include "strips/effect/EffectBase.h"

#include <QMetaEnum>

/// An effect that is laid on a channel: which microphone, which kind, and its level with meter and mute. GUI thread.
class ChannelEffect : public EffectBase
{
    Q_OBJECT
public:
    /// Tenths of a dB, 1 for clip.
    void setVolumeMeter(int tenthsOfDb) { mMeter.feed(tenthsOfDb); }

    void setStripEnabled(bool enabled) override;
    quillon::DeviceSetter deviceSetter(QStringView attribute) override;

protected:
    ChannelEffect(const quillon::EffectShape& shape, const QString& objectName, QWidget* parent);

    /// Adds the buttons of channel and kind.
    template<class Panel> void addButtons(Panel* panel, const quillon::Place& place);
    /// A set of these buttons of which one is lit: kept and sent under key, the first in a fresh workspace. What the device calls
    /// otherwise stands behind a ':', as "STU:STUDIO".
    void declareChoice(const QString& key, const QStringList& buttons);
    /// One of these buttons, kept and sent under its name.
    void declareSwitch(const QString& button);
    /// Adds meter, level and mute and declares them.
    void addLevel(const quillon::Place& meter, const quillon::Place& dial, const quillon::Place& mute);

    /// What was added so far takes this share of the width, from the left.
    void setColumnShare(float share);

private:
    struct Choice {
        QStringList buttons;
        QStringList values;
        quillon::StripEngine::RowId row = -1;
    };

    void pressed(const QString& button, bool on);

    quillon::PanelPort mButtons;
    quillon::PanelPort mMute;
    quillon::MeterPort mMeter;
    std::vector<Choice> mChoices;
    std::vector<std::pair<QWidget*, quillon::Place>> mColumn;
};

template<class Panel> void ChannelEffect::addButtons(Panel* panel, const quillon::Place& place)
{
    mButtons = quillon::panelPort(panel);
    connect(panel, &Panel::buttonStateChanged, this, [this](typename Panel::ButtonID button, bool on) {
        pressed(QString::fromLatin1(QMetaEnum::fromType<typename Panel::ButtonID>().valueToKey(button)), on);
    });
    body().adopt(mButtons, "widgetPushButton1", place);
    mColumn.emplace_back(panel, place);
}
