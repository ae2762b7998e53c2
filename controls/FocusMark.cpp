#include "controls/FocusMark.h"

#include <QFocusEvent>
#include <utility>

namespace quillon
{

bool FocusMark::focusIn(const QFocusEvent* event)
{
    switch (event->reason()) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        return !std::exchange(mShown, true);
    default:
        return false;
    }
}

bool FocusMark::focusOut(const QFocusEvent* event)
{
    // A window that comes back gives the focus back to where it was, without a reason of its own.
    const bool returns = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    return !returns && std::exchange(mShown, false);
}

} // namespace quillon
