#pragma once

#include <QApplication>

namespace quillon
{

/// Knows why its windows are being closed: before the program ends the toolkit closes each of them, as the user does. GUI thread.
class Application : public QApplication
{
    Q_OBJECT
public:
    using QApplication::QApplication;

    /// Inside such a closing. Always false in a program that has another kind of application.
    static bool isLeaving();

    /// Ends the program, also from an event loop that runs before the application's own, which knows no quit.
    static void leave();
    /// The application's own event loop; not begun at all after leave().
    static int run();

    bool event(QEvent* event) override;
};

} // namespace quillon
