// The part of the console's window that hears the device, the driver and the settings.

#include "console/MainWindow_R47.h"

#include "console/SettingsWindow.h"
#include "console/StatusLine.h"
#include "console/head/FieldHeadS1M1.h"
#include "device/USBAudioAPI.h"
#include "update/UpdateGateway.h"

#include <QFileDialog>
#include <QSettings>
#include <QStatusBar>

using namespace Qt::StringLiterals;
using namespace quillon;

void MainWindow_R47::in_USBAudio_attributeChanged(QString attribute, QString)
{
    if (attribute == u"SampleRate"_s) {
        showStreams(true);
    } else if (attribute == u"BufferSize"_s) {
        showStreams(false);
    } else if (attribute == u"SafeMode"_s) {
        mWindows.settings().setSafeMode(USBAudioAPI::instance().getSafeModeOfActiveDevice());
    }
}

/// The bars of all pages, shown or not, so that a page switch has nothing to ask. Which buffers there are depends on the rate.
void MainWindow_R47::showStreams(bool rates)
{
    USBAudioAPI& driver = USBAudioAPI::instance();
    const auto tell = [this](void (FieldHead::*set)(const QList<int>&, int), const QList<int>& supported, int current) {
        for (FieldHead* head : mHeads) {
            (head->*set)(supported, current);
        }
    };
    if (rates) {
        const int rate = driver.getSampleRateOfActiveDevice();
        const QList<int> supported = driver.getSampleRateOfActiveDeviceSupported();
        tell(&FieldHead::setSampleRates, supported, rate);
        mWindows.settings().setSampleRates(supported, rate);
        mStatus->setSampleRate(rate);
    }
    const int size = driver.getBufferSizeOfActiveDevice();
    const QList<int> supported = driver.getBufferSizeOfActiveDeviceSupported();
    tell(&FieldHead::setBufferSizes, supported, size);
    mWindows.settings().setBufferSizes(supported, size);
    mStatus->setBufferSize(size);
}

void MainWindow_R47::in_mDevice_newFrameReceived(DeviceType1::FrameInfo frame)
{
    if ((frame.code & 0xF000) == 0x1000) {
        handleSystemFrame(frame);
        return;
    }
    if ((frame.code & 0xFFFF) == 0x2101) {
        countMeterFrame();
    }
    mRouter.route(mPageID, frame);
}

void MainWindow_R47::handleSystemFrame(const DeviceType1::FrameInfo& frame)
{
    const int code = frame.code & 0xFFFF;
    if (mRouter.route(mPageID, frame)) {
        return; // an option of the device's own
    }
    if (code == 0x1101 && frame.value >= 0) {
        finishAuth(frame.value);
    } else if (code == 0x1118 || code == 0x1119) {
        for (FieldHead* head : mHeads) {
            code == 0x1118 ? head->setBattery(frame.value) : head->setCharging(frame.value != 0);
        }
    } else if (code == 0x1201) {
        const QString version = firmwareVersionText(frame.value);
        mStatus->setFirmware(version);
        mWindows.settings().setFirmwareVersion(version);
    } else if (code >= 0x1202 && code <= 0x1206) {
        if (const QString identity = mIdentity.take(code - 0x1201, frame.value); !identity.isEmpty()) {
            emit firmwareIdentified(identity);
        }
    }
}

void MainWindow_R47::in_settings_attributeChanged(QString objectName, QString attribute, QString value)
{
    if (attribute == u"AutoSaveWorkspace"_s) {
        for (FieldHeadS1M1* bar : mWorkspaceBars) {
            if (bar != nullptr) {
                bar->onAppSettingsChanged(QString(), attribute, value);
            }
        }
        return;
    }
    if (attribute == u"UpdateFirmware"_s) {
        mDevice.in_Others_attributeChanged(objectName, attribute, value);
        handOverForFirmware();
        return;
    }
    if (attribute == u"UpdateSoftware"_s) {
        emit attributeChanged(u"R47"_s, attribute, QString());
        return;
    }
    if (attribute != u"DisplayMode"_s) {
        mDevice.in_Others_attributeChanged(objectName, attribute, value);
        return;
    }
    // The device knows the simple console as its Live mode: from one to the other it has nothing to do.
    if (value == QLatin1StringView(pageRow(PageTyro)->modeWord)) {
        setPage(PageTyro);
        mWindows.settings().hide();
        return;
    }
    if (mPageID == PageTyro && value == QLatin1StringView(pageRow(PageLive)->modeWord)) {
        setPage(PageLive);
    }
    mDevice.in_Others_attributeChanged(objectName, u"FirmwareSelected"_s, value);
}

/// The unit has been told to go into its update mode. From here on it is the connection window's.
void MainWindow_R47::handOverForFirmware()
{
    endConnection();
    mDevice.stopDevice();
    centralWidget()->setEnabled(false); // nobody would hear what is set now
    mWindows.hide();
    const bool chinese = QSettings().value("Language").toString() == u"Chinese"_s;
    statusBar()->showMessage(chinese ? u"正在准备固件更新......"_s : u"Preparing the firmware update..."_s);
    mHandover.start(u"R47"_s);
}

void MainWindow_R47::on_PageFctyPushButton1_clicked()
{
    emit attributeChanged(u"R47"_s, u"UpdateFirmware"_s, QString());
}

void MainWindow_R47::on_PageFctyPushButton2_clicked()
{
    const bool chinese = QSettings().value("Language").toString() == u"Chinese"_s;
    const QString path = QFileDialog::getOpenFileName(this, chinese ? u"选择固件文件"_s : u"Select Firmware File"_s, QString(),
                                                      u"R47_FW Files (R47_FW*.bin R47_FW*.zip)"_s);
    if (!path.isEmpty()) {
        emit attributeChanged(u"R47"_s, u"UpdateFirmware"_s, path);
    }
}

void MainWindow_R47::setUpdateGateway(UpdateGateway* gateway)
{
    mWindows.settings().setUpdateGateway(gateway);
    if (gateway != nullptr) {
        connect(this, &MainWindow_R47::firmwareIdentified, gateway, &UpdateGateway::setFirmwareVersion, Qt::UniqueConnection);
    }
}

void MainWindow_R47::setAutoStarter(const std::function<void(bool)>& starter)
{
    mWindows.settings().setAutoStarter(starter);
}
