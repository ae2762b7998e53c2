#include "controls/WheelGuard.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QSet>
#include <QWheelEvent>
#include <QWidget>

namespace quillon
{

namespace
{

constexpr int kScrollPauseMs = 500;
constexpr int kStillPixels = 3; // a hand on the wheel is never quite still

/// Remembers the last turn of the wheel that no guarded control took.
class ScrollWatch : public QObject
{
public:
    static ScrollWatch& instance()
    {
        // Goes with the application; a filter must not outlive it.
        static QPointer<ScrollWatch> watch;
        if (!watch)
            watch = new ScrollWatch(QCoreApplication::instance());
        return *watch;
    }

    QSet<const QWidget*> controls;
    QElapsedTimer since;
    QPointF where;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::Wheel && receiver->isWidgetType() && !isGuarded(static_cast<QWidget*>(receiver))) {
            since.start();
            where = static_cast<QWheelEvent*>(event)->globalPosition();
        }
        return false;
    }

private:
    explicit ScrollWatch(QObject* application) : QObject(application) { application->installEventFilter(this); }

    bool isGuarded(const QWidget* widget) const
    {
        while (widget && !controls.contains(widget))
            widget = widget->parentWidget();
        return widget;
    }
};

} // namespace

WheelGuard::WheelGuard(QWidget* control) : mControl(control)
{
    ScrollWatch::instance().controls.insert(control);
}

WheelGuard::~WheelGuard()
{
    if (QCoreApplication::instance())
        ScrollWatch::instance().controls.remove(mControl);
}

bool WheelGuard::allows(const QWheelEvent* event) const
{
    const ScrollWatch& watch = ScrollWatch::instance();
    if (!watch.since.isValid() || watch.since.hasExpired(kScrollPauseMs))
        return true;
    if (mControl->hasFocus())
        return true;
    return (event->globalPosition() - watch.where).manhattanLength() > kStillPixels;
}

} // namespace quillon
