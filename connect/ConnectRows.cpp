#include "connect/ConnectRows.h"

#include "connect/DeviceConnectorViewBase.h"

#include <QString>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr QStringView kCancel = u"Cancel";
constexpr QStringView kCancelZh = u"取消";
constexpr QStringView kRetry = u"Retry";
constexpr QStringView kRetryZh = u"重试";
constexpr QStringView kOk = u"Ok";
constexpr QStringView kOkZh = u"确定";
constexpr QStringView kNoCheck = u"Don't check for updates";
constexpr QStringView kNoCheckZh = u"不再检查更新";
constexpr QStringView kDownloadFailed = u"Download failed.";
constexpr QStringView kDownloadFailedZh = u"下载失败";

using enum ConnectKind;

constexpr ConnectRow kRows[] = {
    {PageNoDevice, Message, "Page0Label1"_L1, u"No device connected", u"无设备连接"},
    {PageConnecting, Message, "Page1Label1"_L1, u"Connecting to device...", u"设备连接中......"},
    {PageDriverMissing, Message, "Page2Label1"_L1, u"Please install the driver", u"请安装驱动"},
    {PageConnectionFailed, Message, "Page3Label1"_L1, u"Connection failed", u"连接失败"},
    {PageSeveralDevices, Message, "Page4Label1"_L1, u"Multiple devices detected. Please disconnect extra devices.",
     u"检测到多个设备，请断开不必要的设备"},
    {PageChecking, Message, "Page5Label1"_L1, u"Checking for updates......", u"检查更新中......"},

    {PageUpdateOffered, Message, "Page6Label1"_L1, u"Available version : V0.1.0", u"最新版本 : V0.1.0"},
    {PageUpdateOffered, Detail, "Page6Label2"_L1, u"Current version : V0.0.0", u"当前版本 : V0.0.0"},
    {PageUpdateOffered, Cancel, "Page6PushButton1"_L1, kCancel, kCancelZh, "Cancel"_L1},
    {PageUpdateOffered, Confirm, "Page6PushButton2"_L1, u"Update", u"更新", "UpdateSoftware"_L1},
    {PageUpdateOffered, Check, "Page6CheckBox"_L1, kNoCheck, kNoCheckZh},

    {PageNetworkError, Message, "Page7Label1"_L1, u"Network error", u"网络错误"},
    {PageNetworkError, Cancel, "Page7PushButton1"_L1, kCancel, kCancelZh, "Cancel"_L1},
    {PageNetworkError, Confirm, "Page7PushButton2"_L1, kRetry, kRetryZh, "RetryFetch"_L1},
    {PageNetworkError, Check, "Page7CheckBox"_L1, kNoCheck, kNoCheckZh},

    {PageProgress, Message, "Page8Label1"_L1, u"ProgressText", u"进度文本"},
    {PageProgress, Bar, "Page8ProgressBar"_L1, {}, {}},
    {PageProgress, Detail, "Page8Label2"_L1, u"ProgressMessages", u"进度信息"},

    {PageSoftwareDownloadFailed, Message, "Page9Label1"_L1, kDownloadFailed, kDownloadFailedZh},
    {PageSoftwareDownloadFailed, Cancel, "Page9PushButton1"_L1, kCancel, kCancelZh, "Cancel"_L1},
    {PageSoftwareDownloadFailed, Confirm, "Page9PushButton2"_L1, kRetry, kRetryZh, "RetryDownloadSoftware"_L1},
    {PageSoftwareDownloadFailed, Check, "Page9CheckBox"_L1, kNoCheck, kNoCheckZh},

    {PageFirmwareDownloadFailed, Message, "PageALabel1"_L1, kDownloadFailed, kDownloadFailedZh},
    {PageFirmwareDownloadFailed, Cancel, "PageAPushButton1"_L1, kCancel, kCancelZh, "Cancel"_L1},
    {PageFirmwareDownloadFailed, Confirm, "PageAPushButton2"_L1, kRetry, kRetryZh, "RetryDownloadFirmware"_L1},

    {PageFirmwareUpdateFailed, Message, "PageBLabel"_L1, u"DFU failed. Please restart the device and try again.",
     u"固件升级失败，请重启设备重试升级"},
    {PageFirmwareUpdateFailed, Confirm, "PageBPushButton"_L1, kOk, kOkZh, "Cancel"_L1},

    {PageFirmwareUpdateDone, Message, "PageCLabel"_L1, u"DFU successful. Please restart the device.", u"固件升级成功，请重启设备"},
    {PageFirmwareUpdateDone, Confirm, "PageCPushButton"_L1, kOk, kOkZh, "Cancel"_L1},
};

} // namespace

std::span<const ConnectRow> connectRows()
{
    return kRows;
}

QString connectPageName(int page)
{
    return u"Page"_s + QString::number(page, 16).toUpper();
}

} // namespace quillon
