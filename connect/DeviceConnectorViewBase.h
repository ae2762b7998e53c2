#pragma once

#include <QFont>
#include <QString>
#include <QWidget>

/// What the connection window shows, one look per series. Only shows what it is told, and reports buttons as events. GUI thread.
class DeviceConnectorViewBase : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// The face of all texts; sizes follow from the height of the view.
    virtual void setFont(QFont font) = 0;
    /// "English" or "Chinese"; other values change nothing. Version and progress texts fall back to their first ones.
    virtual void setLanguage(QString language) = 0;
    virtual void setVersions(QString current, QString available) = 0;
    virtual void setProgressText(QString text) = 0;
    /// Percent, 0 to 100.
    virtual void setProgressValue(int value) = 0;
    virtual void setProgressMessage(QString text) = 0;
    virtual int currentPage() const = 0;
    /// A number without a page is ignored.
    virtual void setPage(int page) = 0;

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);
};

namespace quillon
{

/// The pages of a view, by their number in setPage().
enum ConnectPage {
    PageNoDevice,
    PageConnecting,
    PageDriverMissing,
    PageConnectionFailed,
    PageSeveralDevices,
    PageChecking,
    PageUpdateOffered,
    PageNetworkError,
    PageProgress,
    PageSoftwareDownloadFailed,
    PageFirmwareDownloadFailed,
    PageFirmwareUpdateFailed,
    PageFirmwareUpdateDone,
    ConnectPageCount
};

} // namespace quillon
