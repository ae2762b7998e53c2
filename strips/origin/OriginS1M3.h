#pragma once

#include "controls/group/PanelShape.h"
#include "strips/origin/OriginBase.h"

/// The menu of the simple console: ducking, the presets of the device, the way to the full console.
class OriginS1M3 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M3(const QString& objectName, QWidget* parent = nullptr);

    /// Value of the device: shown and stored, not sent back.
    void setDuckingSwitch(bool on) { deviceSetter(u"DuckingSwitch")(on); }

private:
    quillon::PanelPort addButtons(const quillon::PanelShape& shape, const char* childName, const quillon::Place& place);
    void pressed(const QString& button, const QString& state);

    const quillon::PanelPort mDuck;
    const quillon::PanelPort mConfig;
    quillon::StripEngine::RowId mDuckRow = -1;
};
