#include "app/Application.h"

#include <QEvent>
#include <QScopedValueRollback>

namespace quillon
{

namespace
{

bool gLeaving = false;
bool gLeft = false;

} // namespace

bool Application::isLeaving()
{
    return gLeaving;
}

void Application::leave()
{
    gLeft = true;
    quit();
    exit(0);
}

int Application::run()
{
    return gLeft ? 0 : exec();
}

bool Application::event(QEvent* event)
{
    const QScopedValueRollback leaving(gLeaving, gLeaving || event->type() == QEvent::Quit);
    return QApplication::event(event);
}

} // namespace quillon
