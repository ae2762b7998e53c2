#include "app/Application.h"

#include <QEvent>
#include <QScopedValueRollback>

namespace quillon
{

namespace
{

bool gLeaving = false;

} // namespace

bool Application::isLeaving()
{
    return gLeaving;
}

void Application::leave()
{
    quit();
    exit(0);
}

bool Application::event(QEvent* event)
{
    const QScopedValueRollback leaving(gLeaving, gLeaving || event->type() == QEvent::Quit);
    return QApplication::event(event);
}

} // namespace quillon
