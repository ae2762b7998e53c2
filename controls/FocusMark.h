#pragma once

#include <QColor>

class QFocusEvent;

namespace quillon
{

/// Whether a control shows that it has the focus: only when the keyboard brought it. Held by the control. GUI thread.
class FocusMark
{
public:
    static QColor color() { return {67, 207, 124}; }

    /// Both return whether the mark came or went, so that the control has to be painted anew.
    bool focusIn(const QFocusEvent* event);
    bool focusOut(const QFocusEvent* event);
    bool isShown() const { return mShown; }

private:
    bool mShown = false;
};

} // namespace quillon
