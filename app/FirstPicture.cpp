#include "app/FirstPicture.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace quillon
{

namespace
{

class ExposeWatch : public QObject
{
public:
    ExposeWatch(QWindow* window, std::function<void()> act) : QObject(window), mAct(std::move(act))
    {
        window->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Expose) {
            watched->removeEventFilter(this);
            // Behind the painting, which the same event brings.
            QTimer::singleShot(0, this, [this] {
                mAct();
                deleteLater();
            });
        }
        return false;
    }

private:
    std::function<void()> mAct;
};

} // namespace

void afterFirstPicture(const QWidget& window, std::function<void()> act)
{
    if (QWindow* shown = window.windowHandle(); shown != nullptr && !shown->isExposed()) {
        new ExposeWatch(shown, std::move(act));
    } else {
        act();
    }
}

} // namespace quillon
