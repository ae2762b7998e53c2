#include "app/TrayPlace.h"

#include <QSystemTrayIcon>
#include <QTimer>

namespace quillon
{

struct TrayPlace::Watch {
};

TrayPlace::TrayPlace(QObject* parent) : QObject(parent)
{
    QTimer::singleShot(0, this, &TrayPlace::changed);
}

TrayPlace::~TrayPlace() = default;

bool TrayPlace::isThere() const
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

} // namespace quillon
