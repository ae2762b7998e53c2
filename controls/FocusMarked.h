#pragma once

#include "controls/FocusMark.h"

#include <QFocusEvent>

namespace quillon
{

/// A button that keeps the mark of its own focus, to be drawn by whoever paints it. GUI thread.
template<class Button> class FocusMarked : public Button
{
public:
    using Button::Button;

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        mFocus.focusIn(event);
        Button::focusInEvent(event);
        Button::update();
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        mFocus.focusOut(event);
        Button::focusOutEvent(event);
        Button::update();
    }

    FocusMark mFocus;
};

} // namespace quillon
