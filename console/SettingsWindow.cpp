#include "console/SettingsWindow.h"

#include "console/settings/R47_PrivateWidget7.h"
#include "console/settings/TabWidgetS1M1.h"
#include "console/settings/WidgetAbout1.h"
#include "console/settings/WidgetAudio1.h"
#include "console/settings/WidgetSytem1.h"
#include "update/UpdaterSoftware.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace quillon
{

SettingsWindow::SettingsWindow(QWidget& owner)
    : QObject(&owner), mOwner(owner), mDialog(new TabWidgetS1M1(&owner)), mSystem(new WidgetSytem1),
      mDevice(new R47_PrivateWidget7), mAudio(new WidgetAudio1), mAbout(new WidgetAbout1)
{
    mDialog->setTabNames({{u"English"_s, {u"System"_s, u"Device"_s, u"ASIO"_s, u"About"_s}},
                          {u"Chinese"_s, {u"系统设置"_s, u"设备设置"_s, u"ASIO设置"_s, u"关于"_s}}});
    AppSettingsSubject& settings = AppSettingsSubject::instance();
    settings.addObserver(mDialog);
    const auto add = [&](const QString& key, auto* page) {
        mDialog->addPage(key, page);
        settings.addObserver(page);
        connect(page, &std::remove_pointer_t<decltype(page)>::attributeChanged, this, &SettingsWindow::attributeChanged);
    };
    add(u"System"_s, mSystem);
    add(u"Device"_s, mDevice);
    add(u"ASIO"_s, mAudio);
    add(u"About"_s, mAbout);

    const QSettings stored;
    mSystem->setLanguage(stored.value("Language").toString());
    mSystem->setScaleFactor(stored.value("ScaleFactor").toString());
    mSystem->setFollowSystemScale(stored.value("FollowSystemScale").toBool());
    mSystem->setAutoSaveWorkspace(stored.value("AutoSaveWorkspace").toBool());
    mSystem->setAutoStartOnBoot(stored.value("AutoStartOnBoot").toBool());
    mSystem->setAutoCheckForUpdates(stored.value("AutoCheckForUpdates").toBool());
    mAbout->setModel(u"R47"_s);
    mAbout->setHardwareVersion(u"1.00"_s);
    mAbout->setSoftwareVersion(UpdaterSoftware::programVersion());
}

void SettingsWindow::show()
{
    mDialog->showOver(&mOwner);
}

void SettingsWindow::hide()
{
    mDialog->hide();
}

void SettingsWindow::setScaleFactor(double factor)
{
    mDialog->setScaleFactor(factor);
}

void SettingsWindow::bind(InboundRouter& router)
{
    for (const PageId page : {PageMble, PageLive, PageTyro, PageProf}) {
        router.bind(page, u"SettingsDevice"_s, *mDevice);
    }
}

void SettingsWindow::setPage(const PageRow& page)
{
    mDevice->setDisplayMode(QString::fromUtf8(page.modeWord));
    mSystem->setWorkspaceFixed(page.fixedWorkspace != nullptr);
}

void SettingsWindow::setSampleRates(const QList<int>& rates, int current)
{
    mAudio->setSampleRates(rates, current);
}

void SettingsWindow::setBufferSizes(const QList<int>& sizes, int current)
{
    mAudio->setBufferSizes(sizes, current);
}

void SettingsWindow::setSafeMode(bool on)
{
    mAudio->setSafeMode(on);
}

void SettingsWindow::setFirmwareVersion(const QString& version)
{
    mAbout->setFirmwareVersion(version);
}

void SettingsWindow::setUpdateGateway(UpdateGateway* gateway)
{
    mAbout->setUpdateGateway(gateway);
}

void SettingsWindow::setAutoStarter(const std::function<void(bool)>& starter)
{
    mSystem->setAutoStarter(starter);
    starter(QSettings().value("AutoStartOnBoot").toBool());
}

} // namespace quillon
