// Pictures of the connection pages, the console and all controls, in both languages and three scales, as they stand: shots FOLDER.
// Everything is the program's own; the levels and front-panel changes are frames, as a device would send them.

#include "app/AppSettingsSubject.h"
#include "app/GlobalFont.h"
#include "app/LogHandler.h"
#include "connect/DeviceConnector.h"
#include "connect/DeviceConnectorViewBase.h"
#include "console/MainWindow_R47.h"
#include "console/ducking/R47_PrivateWidget1.h"
#include "console/settings/TabWidgetS1M1.h"
#include "device/USBAudioAPI.h"
#include "equalizer/window/EqualizerBase.h"
#include "gallery/GalleryWindow.h"
#include "resources/Resources.h"
#include "strips/input/InputBase.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <cmath>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

struct Shooter {
    QDir folder;
    QString language;
    double scale;
    int failures = 0;

    void take(QWidget& window, const QString& name)
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        save(window.grab(), name);
    }

    void save(const QPixmap& picture, const QString& name)
    {
        const QString file = u"%1-%2-%3.png"_s.arg(name, language == u"Chinese"_s ? u"zh"_s : u"en"_s).arg(scale, 0, 'f', 1);
        if (!picture.save(folder.filePath(file))) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
            ++failures;
        }
    }
};

void shootConnection(Shooter& shooter)
{
    DeviceConnector connector;
    connector.showSeries(u"Vantor"_s, {{u"R47"_s, {u"0x152A"_s, u"0x875C"_s}}});
    auto* view = connector.findChild<DeviceConnectorViewBase*>();
    for (int page = 0; page < quillon::ConnectPageCount; ++page) {
        view->setPage(page);
        if (page == quillon::PageUpdateOffered) {
            view->setVersions(u"1.2.0"_s, u"1.3.1"_s);
        } else if (page == quillon::PageProgress) {
            view->setProgressText(shooter.language == u"Chinese"_s ? u"下载中  42%"_s : u"Downloading  42%"_s);
            view->setProgressValue(42);
            view->setProgressMessage(u"13.4 MB / 32.0 MB  ( 2.1 MB/s )"_s);
        }
        shooter.take(connector, u"connect-%1"_s.arg(page, 2, 10, QLatin1Char('0')));
    }
}

void report(MainWindow_R47& window, std::int32_t code, std::int32_t value)
{
    window.in_mDevice_newFrameReceived({.code = code, .value = value});
}

void play(MainWindow_R47& window)
{
    constexpr std::pair<std::int32_t, std::int32_t> kPerformance[]{
        {0x1118, 64},   {0x1201, 203},  {0x2101, 1},    {0x2101, -84},  {0x2201, -312}, {0x2301, -61},  {0x2401, -143},
        {0x2501, 0},    {0x2601, -25},  {0x2701, -404}, {0x2801, -377}, {0x2102, 2},    {0x2103, 1},    {0x2104, 42},
        {0x2205, 1},    {0x2304, 85},   {0x2504, 80},   {0x2704, 0},    {0x2706, 0},    {0x3115, -93},  {0x3215, -121},
        {0x3315, -180}, {0x3415, -172}, {0x3515, -245}, {0x3615, -230}, {0x3901, -96},  {0x3902, -104}, {0x3903, -150},
        {0x3904, -161}, {0x3905, -333}, {0x3906, -310}, {0x3911, -700}, {0x3912, -690}, {0x4407, 30},   {0x4408, 55},
        {0x440B, 3},    {0x440D, -142}, {0x440E, -205}, {0x6101, -190}, {0x6201, -201}, {0x6301, -111}, {0x6401, -133},
        {0x6403, 70},   {0x6204, 1},    {0x9B0B, -84},  {0x9B0C, -312},
    };
    for (const auto& [code, value] : kPerformance) {
        report(window, code, value);
    }
    window.in_USBAudio_attributeChanged(u"SampleRate"_s, u"48000"_s);
}

/// Strips that are hidden, soloed and in the form with two sides, as a user leaves them.
void rearrange(const QWidget& page)
{
    for (const char* strip : {"Mixer_BT", "Loopback_LB34"}) {
        if (auto* shown = page.findChild<QWidget*>(QLatin1StringView(strip))) {
            if (auto* close = shown->findChild<QPushButton*>(u"pushButtonClose"_s)) {
                close->click();
            }
        }
    }
    for (const char* strip : {"Mixer_AUX", "Loopback_LB12"}) {
        if (auto* shown = page.findChild<QWidget*>(QLatin1StringView(strip))) {
            if (auto* link = shown->findChild<QPushButton*>(u"pushButtonLink"_s)) {
                link->click();
            }
        }
    }
    if (auto* strip = page.findChild<InputBase*>(u"Input_AUX"_s)) {
        strip->setSolo(true);
    }
}

/// A measured response that falls and rises around a tilt, as a file.
QString writeResponse(const QString& path, double tiltDb, double rippleDb)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write("fre(Hz),raw(dB)\n");
        for (double hertz = 20; hertz < 22000; hertz *= 1.05) {
            const double octaves = std::log2(hertz / 1000);
            file.write(QByteArray::number(hertz) + ',' + QByteArray::number(tiltDb * octaves + rippleDb * std::sin(2.1 * octaves)) +
                       '\n');
        }
    }
    return path;
}

void shootEqualizers(Shooter& shooter, MainWindow_R47& window)
{
    for (int band = 1; band <= 10; ++band) {
        for (const int base : {0x9000, 0xA000}) {
            const int code = base | band << 8;
            report(window, code | 2, band == 1 ? 4 : band == 10 ? 5 : 1);
            report(window, code | 3, 20 * (band % 5 - 2) * (band % 2 ? 1 : 2));
            report(window, code | 4, static_cast<int>(40 * std::pow(2.0, band * 0.85)));
            report(window, code | 1, band != 6);
        }
    }
    for (const int code : {0x9B0F, 0xAB0F}) {
        report(window, code, 1);
    }
    const QString target = writeResponse(u"target.csv"_s, -0.8, 0);
    const QString source = writeResponse(u"source.csv"_s, -0.3, 4);
    for (EqualizerBase* equalizer : window.findChildren<EqualizerBase*>()) {
        equalizer->setScaleFactor(shooter.scale);
        equalizer->show();
        shooter.take(*equalizer, equalizer->objectName() + u"-fresh"_s);
        equalizer->importTargetFile(target);
        equalizer->importSourceFile(source);
        equalizer->setStateTarget(true);
        equalizer->setStateSource(true);
        equalizer->setStateEachFilter(true);
        equalizer->setStateFiltered(true);
        equalizer->setVolumeMeterInputLeft(-120);
        equalizer->setVolumeMeterInputRight(-180);
        equalizer->setVolumeMeterOutputLeft(-90);
        equalizer->setVolumeMeterOutputRight(1);
        shooter.take(*equalizer, equalizer->objectName() + u"-all"_s);
        equalizer->hide();
    }
}

void shootSettings(Shooter& shooter, const MainWindow_R47& window)
{
    auto* dialog = window.findChild<TabWidgetS1M1*>();
    dialog->setScaleFactor(shooter.scale);
    dialog->show();
    for (const char* tab : {"System", "Device", "ASIO", "About"}) {
        dialog->setCurrentTab(QLatin1StringView(tab));
        shooter.take(*dialog, u"settings-"_s + QString::fromLatin1(tab).toLower());
    }
    dialog->hide();
}

void shootConsole(Shooter& shooter)
{
    MainWindow_R47 window;
    window.finishAuth(2);
    shooter.take(window, u"live-fresh"_s);
    constexpr std::pair<quillon::PageId, const char*> kPages[]{
        {quillon::PageMble, "mobile"}, {quillon::PageLive, "live"}, {quillon::PageTyro, "easy"}, {quillon::PageProf, "pro"}};
    for (const auto& [page, name] : kPages) {
        window.setPage(page);
        play(window);
        shooter.take(window, QLatin1StringView(name) + u"-playing"_s);
        rearrange(*window.findChild<QWidget*>(QLatin1StringView(quillon::pageRow(page)->object)));
        window.resize(static_cast<int>(1500 * shooter.scale), window.height());
        shooter.take(window, QLatin1StringView(name) + u"-wide"_s);
    }
    auto* ducking = window.findChild<R47_PrivateWidget1*>();
    ducking->setScaleFactor(shooter.scale);
    ducking->show();
    shooter.take(*ducking, u"ducking"_s);
    ducking->hide();

    shootEqualizers(shooter, window);
    shootSettings(shooter, window);

    window.setPage(quillon::PageFcty);
    shooter.take(window, u"recovery"_s);
}

void shootGallery(Shooter& shooter)
{
    using namespace quillon::gallery;
    GalleryWindow window({shooter.language, shooter.scale});
    window.show();
    window.activateWindow();
    int index = 0;
    for (const Family& family : kFamilies) {
        window.setPage(index);
        GalleryPage* page = window.page(index++);
        for (int frame = 0; frame < 60; ++frame) {
            page->feed(levelsAt(frame / 30.0));
        }
        QCoreApplication::processEvents();
        shooter.save(page->picture(), u"gallery-%1"_s.arg(QLatin1StringView(family.file)));
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: quillon-shots FOLDER\n");
        return 2;
    }
    QApplication application(argc, argv);
    quillon::installLogHandler();
    quillon::initResources();
    GlobalFont::instance().load(quillon::applicationFontPaths());
    const QDir folder(QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, work.path());

    int failures = 0;
    for (const QString& language : {u"English"_s, u"Chinese"_s}) {
        for (const double scale : {1.0, 1.5, 2.0}) {
            QSettings().clear();
            AppSettingsSubject::instance().init();
            QSettings().setValue("Language", language);
            QSettings().setValue("ScaleFactor", scale);
            Shooter shooter{folder, language, scale};
            shootConnection(shooter);
            shootConsole(shooter);
            shootGallery(shooter);
            failures += shooter.failures;
        }
    }
    return failures == 0 ? 0 : 1;
}
