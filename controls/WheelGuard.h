#pragma once

class QWheelEvent;
class QWidget;

namespace quillon
{

/// Keeps a value safe that slides under the pointer while a page is scrolled: for 500 ms after a scroll, a control under a pointer
/// that has not moved since leaves the wheel to the page, unless it has the focus. One per control, held by it. GUI thread.
class WheelGuard
{
public:
    explicit WheelGuard(QWidget* control);
    ~WheelGuard();
    WheelGuard(const WheelGuard&) = delete;
    WheelGuard& operator=(const WheelGuard&) = delete;

    /// Whether the control takes this turn of the wheel. If not, it has to ignore the event.
    bool allows(const QWheelEvent* event) const;

private:
    QWidget* mControl;
};

} // namespace quillon
