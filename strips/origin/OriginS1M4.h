#pragma once

#include "controls/group/PanelShape.h"
#include "strips/origin/OriginBase.h"

/// The effects of the simple console: a kind of noise reduction, a kind of reverb and its mix. It speaks as the effects and, since
/// this console has no effect channel, as the mixer strips: while one of the two is on, the effect return stands in the mixes for
/// the microphones.
class OriginS1M4 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M4(const QString& objectName, QWidget* parent = nullptr);

protected:
    void raise(const QString& attribute, const QString& value) override;

private:
    quillon::PanelPort addChoice(const quillon::PanelShape& shape, const char* childName, const quillon::Place& place);
    void declareChoice(const quillon::PanelPort& panel, const quillon::PanelShape& shape);
    void route();
    bool isOff() const { return mNoise.isOn(QStringLiteral("OFF")) && mReverb.isOn(QStringLiteral("OFF")); }

    const quillon::PanelPort mNoise;
    const quillon::PanelPort mReverb;
    int mTypesSent = 0; // the routing follows each type that goes out
};
