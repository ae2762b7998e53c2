#pragma once
// Which workspace a page opens, and what a new one is called. No widget: the bar and the page switch share it.

#include <QStringList>

class WorkspaceSubject;

namespace quillon
{

/// A free name for the typed text: the text itself, or empty when it is taken. For no text the present time
/// ("yyyy-MMdd-hhmm-ss"), or the next second whose name is free.
QString uniqueName(const QString& text, const QStringList& taken);

/// Opens the remembered workspace of the subject's work mode, else the oldest, else a new one. mode as in modifyWorkspace().
/// Returns the name that was opened; where that failed, no workspace is open.
QString openRememberedWorkspace(WorkspaceSubject& subject, int mode);

/// 0 when "AutoSaveWorkspace" is on, 1 (private copy) otherwise.
int workspaceMode();

} // namespace quillon
