#include "controls/group/ClickTiming.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace quillon
{
namespace
{
QString nameOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return u"LeftButton"_s;
    case Qt::RightButton:
        return u"RightButton"_s;
    case Qt::MiddleButton:
        return u"MiddleButton"_s;
    default:
        return {};
    }
}
} // namespace

ClickTiming::ClickTiming()
{
    mTimer.setSingleShot(true);
    mTimer.setInterval(kIntervalMs);
    mTimer.setTimerType(Qt::PreciseTimer);
    connect(&mTimer, &QTimer::timeout, this, &ClickTiming::in_mTimer_timeout);
}

void ClickTiming::watch(QAbstractButton* button)
{
    button->installEventFilter(this);
}

bool ClickTiming::eventFilter(QObject* watched, QEvent* event)
{
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (!button) {
        return false;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        button->setDown(false);
        // Pulled off the button before letting go: the user thought better of it.
        if (button->isEnabled() && button->rect().contains(mouse->position().toPoint())) {
            released(button, mouse->button());
        }
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Menu) {
            emit clicked(button, u"RightButtonSingle"_s);
            return true;
        }
    }
    return false;
}

void ClickTiming::released(QAbstractButton* button, Qt::MouseButton mouseButton)
{
    const QString name = nameOf(mouseButton);
    if (name.isEmpty()) {
        return;
    }
    if (!mTimer.isActive()) {
        mButton = button;
        mMouseButton = mouseButton;
        mTimer.start();
        return;
    }
    mTimer.stop();
    if (mButton == button && mMouseButton == mouseButton) {
        emit clicked(button, name + "Double"_L1);
    }
}

void ClickTiming::in_mTimer_timeout()
{
    if (!mButton) {
        return;
    }
    // Whoever hears of the click may open a modal window, in which another click starts before this one is done.
    const QPointer<QAbstractButton> button = mButton;
    const Qt::MouseButton mouseButton = mMouseButton;
    emit clicked(button, nameOf(mouseButton) + "Single"_L1);
    if (button && mouseButton == Qt::LeftButton) {
        button->click();
    }
}
} // namespace quillon
