#pragma once
// Which workspace a page opens, and what a new one is called. No widget: the bar and the page switch share it.

#include <QStringList>

class WorkspaceSubject;

namespace quillon
{

/// A free name for the typed text: the text itself, or empty when it is taken. For no text the present time
/// ("yyyy-MMdd-hhmm-ss"), or the next second whose name is free.
QString uniqueName(const QString& text, const QStringList& taken);

/// The remembered name if it is one of the names and a workspace of this device, else the first that is; empty where none is.
QString workspaceToOpen(const WorkspaceSubject& subject, const QStringList& names, const QString& remembered);

/// 0 when "AutoSaveWorkspace" is on, 1 (private copy) otherwise.
int workspaceMode();

} // namespace quillon
