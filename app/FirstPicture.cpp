#include "app/FirstPicture.h"

#include <QEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <deque>
#include <utility>

namespace quillon
{

namespace
{

constexpr int kLatestMs = 3000; // a window on another desktop is not seen at all

class ExposeWatch : public QObject
{
public:
    /// The one of a window that waits for its picture.
    static ExposeWatch& of(QWindow& window)
    {
        for (QObject* child : window.children()) {
            if (auto* watch = dynamic_cast<ExposeWatch*>(child)) {
                return *watch;
            }
        }
        return *new ExposeWatch(window);
    }
    void add(std::function<void()> act) { mActs.push_back(std::move(act)); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Expose) {
            watched->removeEventFilter(this);
            begin(); // behind the painting, which the same event brings
        }
        return false;
    }

private:
    explicit ExposeWatch(QWindow& window) : QObject(&window)
    {
        window.installEventFilter(this);
        QTimer::singleShot(kLatestMs, this, &ExposeWatch::begin);
    }

    void begin()
    {
        if (!std::exchange(mBegun, true)) {
            actLater();
        }
    }

    void actLater()
    {
        QTimer::singleShot(0, this, [this] {
            const auto act = std::exchange(mActs.front(), {});
            mActs.pop_front();
            const QPointer<ExposeWatch> self(this);
            act(); // may ask for more, and may take the window away
            if (self && mActs.empty()) {
                setParent(nullptr); // nothing more is added to it
                deleteLater();
            } else if (self) {
                actLater();
            }
        });
    }

    bool mBegun = false;
    std::deque<std::function<void()>> mActs;
};

} // namespace

void afterFirstPicture(const QWidget& window, std::function<void()> act)
{
    if (QWindow* shown = window.windowHandle(); shown != nullptr && !shown->isExposed()) {
        ExposeWatch::of(*shown).add(std::move(act));
    } else {
        act();
    }
}

} // namespace quillon
