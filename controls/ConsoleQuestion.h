#pragma once

#include <functional>

class MessageBoxWidget;
class QFont;
class QString;
class QWidget;

namespace quillon
{

/// Puts a question over the middle of the console and returns at once. answered gets its result; 0 when it was closed, or
/// when the asker's page is no longer shown, since the answer would meet the workspaces of another one. The question goes with the
/// asker. Takes body over. GUI thread.
void askOverConsole(QWidget* asker, MessageBoxWidget* body, const QString& language, const std::function<void(int)>& answered);

} // namespace quillon
