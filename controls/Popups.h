#pragma once

class QWidget;

namespace quillon
{

/// Closes the menus and lists that are open over a window, innermost first. GUI thread.
void closePopups(const QWidget& window);

} // namespace quillon
