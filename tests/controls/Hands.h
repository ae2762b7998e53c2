#pragma once
// What the tests of controls share: a count of paints, and a turn of the wheel.

#include <QApplication>
#include <QPaintEvent>
#include <QWheelEvent>
#include <QWidget>

/// An event filter that counts the paints of a widget and keeps what was painted.
struct PaintCount : QObject {
    int count = 0;
    QRegion region;
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++count;
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

/// Turns the wheel over a widget, in its middle or at a place of the screen; whether the widget took it.
inline bool turn(QWidget* widget, int delta, QPointF global = QPointF(-1, -1))
{
    if (global.x() < 0)
        global = widget->mapToGlobal(QPointF(widget->rect().center()));
    QWheelEvent event(widget->mapFromGlobal(global), global, {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}
