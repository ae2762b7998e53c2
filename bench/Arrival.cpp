// The program's start as main() does it, telling when its connection window has found the device.

#include "bench/Harness.h"
#include "connect/DeviceConnector.h"

#include <QCoreApplication>
#include <QIcon>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace bench
{

QJsonObject arrive(const QStringList&)
{
    const Home home;
    DeviceConnector connector;
    connector.registerMainWindow(u"R47"_s, [](DeviceConnector*) -> MainWindow_Base* {
        std::printf("detected %lld\n", static_cast<long long>(nowNs()));
        std::fflush(stdout);
        auto* console = new MainWindow_R47;
        console->setWindowIcon(QIcon(u":/Icon/Vantor.ico"_s));
        console->setWindowTitle(u"Quillon"_s);
        return console;
    });
    connector.showSeries(u"Vantor"_s, {{u"R47"_s, {u"0x152A"_s, u"0x875C"_s}}});
    // Beside it, a bare window of the console's size in a program that runs already.
    QWidget bare;
    bare.resize(1100, 645);
    QTimer::singleShot(500, &bare, [&bare] {
        std::printf("bare %lld\n", static_cast<long long>(nowNs()));
        std::fflush(stdout);
        bare.show();
    });
    QTimer::singleShot(1500, &bare, &QWidget::hide);
    QCoreApplication::exec();
    return {};
}

} // namespace bench
