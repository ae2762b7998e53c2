#pragma once

#include "controls/PushButtons.h"
#include "strips/mixer/MixerBase.h"

/// A source whose channels can be unlinked, without polarity; no page has one at present.
class MixerS1M1 final : public MixerBase
{
    Q_OBJECT
public:
    explicit MixerS1M1(const QString& objectName, QWidget* parent = nullptr);

protected:
    quillon::MixGains gains(const quillon::MixPair& channels) const override;

private slots:
    void in_widgetPushButtonGroup1_buttonStateChanged(PushButtonS1M2::ButtonID button, bool state);
    void in_widgetPushButtonGroup2_buttonStateChanged(PushButtonS1M6::ButtonID button, bool state);
};
