#pragma once

#include "strips/effect/ChannelEffect.h"

/// Reverb of a chosen microphone. Where room is short it stands without the dials of the reverb itself.
class EffectS1M2 final : public ChannelEffect
{
    Q_OBJECT
public:
    explicit EffectS1M2(const QString& objectName, QWidget* parent = nullptr);

    /// "Small" or "Large"; anything else changes nothing. Kept in the workspace.
    void setNavigationDisplayMode(const QString& mode);

private:
    void addReverb(const char* key, const char* childName, const quillon::Place& place, const quillon::StripText& meaning,
                   int maximum, int initial);
    void showDisplayMode(const QString& mode);

    quillon::StripEngine::RowId mModeRow = -1;
    QString mMode;
};
