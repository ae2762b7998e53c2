#include "connect/Registry.h"

#include "app/AutoStartManager.h"
#include "connect/DeviceConnector.h"
#include "console/MainWindow_R47.h"

#include <QIcon>

using namespace Qt::StringLiterals;

void quillon::registerConsoles(DeviceConnector& connector)
{
    connector.registerMainWindow(u"R47"_s, [](DeviceConnector* owner) -> MainWindow_Base* {
        auto* window = new MainWindow_R47;
        window->setWindowIcon(QIcon(u":/Icon/Vantor.ico"_s));
        window->setWindowTitle(u"Quillon"_s);
        window->setUpdateGateway(owner->updates());
        window->setAutoStarter(AutoStartManager::setAutoStart);
        return window;
    });
}
