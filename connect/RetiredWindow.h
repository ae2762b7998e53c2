#pragma once

#include <QPointer>
#include <QTimer>

class QWidget;

namespace quillon
{

/// Takes a window whose time is over and deletes it as soon as none of its code can be on the stack: not inside its own signal,
/// and not under a dialog or menu that it has open (those are closed). GUI thread.
class RetiredWindow
{
public:
    RetiredWindow();
    ~RetiredWindow();
    RetiredWindow(const RetiredWindow&) = delete;
    RetiredWindow& operator=(const RetiredWindow&) = delete;

    /// Hides the window and keeps it until it may go. An older one that still waits goes first.
    void retire(QWidget* window);
    /// Deletes at once what may be deleted. False while a window has to stay, because a dialog of its own is still returning.
    bool settle();

private:
    QPointer<QWidget> mWindow;
    QTimer mTimer;
};

} // namespace quillon
