#pragma once

#include <functional>

class QWidget;

namespace quillon
{

/// Calls `act` from the event loop once a window that is being shown has painted its first picture: the place for what a start can
/// do without. What is asked for first is called first, with a look at other events in between. At once for a window that is not
/// shown or has been seen already, after three seconds for one that nobody gets to see, and never if the window is destroyed
/// before. GUI thread.
void afterFirstPicture(const QWidget& window, std::function<void()> act);

} // namespace quillon
