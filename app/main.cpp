#include "app/AppSettingsSubject.h"
#include "app/Application.h"
#include "app/FontStart.h"
#include "app/LogHandler.h"
#include "app/ScreenFit.h"
#include "app/SingleInstanceManager.h"
#include "app/Termination.h"
#include "app/WorkingFolder.h"
#include "connect/DeviceConnector.h"
#include "console/PageSize.h"
#include "controls/Accessibility.h"
#include "device/USBAudioAPI.h"
#include "device/USBAudioManager.h"
#include "device/USBHIDAPI.h"
#include "resources/Resources.h"
#include "update/Updates.h"

#include <QStyleFactory>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    quillon::FontStart fonts;
    const quillon::Application application(argc, argv);
    // The console closes into the background; leaving is the user's own act.
    QApplication::setQuitOnLastWindowClosed(false);
    if (QStyle* style = QStyleFactory::create(u"windowsvista"_s)) {
        QApplication::setStyle(style);
    }
    quillon::enterWorkingFolder();
    quillon::installLogHandler();
    quillon::initResources();
    fonts.load();
    SingleInstanceManager::instance().checkAndActivate();
    quillon::installControlAccessibility();
    AppSettingsSubject::instance().init();
    if (quillon::applyScreenFit()) {
        quillon::dropPageSizes();
    }
    const quillon::Termination termination;

    USBAudioAPI::instance().Init();
    USBAudioManager::instance();
    USBHIDAPI::instance().init();

    int result = 0;
    {
        quillon::Updates updates;
        DeviceConnector connector(&updates);
        connector.showSeries(u"Vantor"_s, {{u"R47"_s, {u"0x152A"_s, u"0x875C"_s}}});
        fonts.completeAfter(connector);
        result = quillon::Application::run();
        // The console's device closes its channel only when the connector goes, after the library was left.
        USBHIDAPI::instance().exit();
    }
    return result;
}
