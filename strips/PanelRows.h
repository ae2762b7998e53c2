#pragma once
// Rows of what stands on many strips' button panels.

#include "strips/ControlPorts.h"
#include "strips/StripRow.h"

namespace quillon
{

/// A switch of a panel: kept and sent under the name of its button, off in a fresh workspace. The panel must outlive the row.
StripRow switchRow(const PanelPort& panel, const QString& button);
/// The choice of a panel, of a selector or of a set of exclusive buttons: kept and sent as the name of its button, the first one in
/// a fresh workspace. A name that is not among the buttons moves nothing. The panel must outlive the row.
StripRow choiceRow(const PanelPort& panel, const QString& key, const QStringList& buttons);
/// The microphone that a panel selects, of a selector or of a set of exclusive buttons: "Mic1" in a fresh workspace.
StripRow microphoneRow(const PanelPort& panel);
/// True for the buttons that microphoneRow() is about.
bool isMicrophone(const QString& button);
/// The value of an event for a button that switches a window's feature and can also open it: "On", "Off", "Show"; empty where
/// the state means nothing.
QString windowEvent(const QString& state);

} // namespace quillon
