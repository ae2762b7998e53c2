#include "connect/RetiredWindow.h"

#include "controls/Popups.h"

#include <QDialog>
#include <QThread>

namespace quillon
{

namespace
{

constexpr int kAgainMs = 20;

// Deeper than the program's own loop means: a dialog or menu is being executed, and the code that opened it will go on.
bool inNestedLoop()
{
    return QThread::currentThread()->loopLevel() > 1;
}

void closeDialogs(QWidget* window)
{
    closePopups(*window);
    const QList<QDialog*> dialogs = window->findChildren<QDialog*>();
    for (QDialog* dialog : dialogs) {
        if (dialog->isVisible()) {
            dialog->reject();
        }
    }
}

} // namespace

RetiredWindow::RetiredWindow()
{
    mTimer.setSingleShot(true);
    QObject::connect(&mTimer, &QTimer::timeout, &mTimer, [this] {
        if (!settle()) {
            mTimer.start(kAgainMs);
        }
    });
}

RetiredWindow::~RetiredWindow()
{
    delete mWindow.data();
}

void RetiredWindow::retire(QWidget* window)
{
    settle();
    mWindow = window;
    closeDialogs(window);
    window->hide();
    mTimer.start(0);
}

bool RetiredWindow::settle()
{
    if (mWindow == nullptr) {
        return true;
    }
    if (inNestedLoop()) {
        return false;
    }
    mTimer.stop();
    delete mWindow.data();
    return true;
}

} // namespace quillon
