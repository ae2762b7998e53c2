#pragma once

#include "console/ConsoleWindows.h"
#include "console/FirmwareHandover.h"
#include "console/FirmwareIdentity.h"
#include "console/InboundRouter.h"
#include "console/MainWindow_Base.h"
#include "console/PageTable.h"
#include "console/pages/PageKit.h"
#include "device/DeviceR47.h"

#include <QStackedWidget>
#include <QTimer>
#include <vector>

class FieldHeadS1M1;
class RecoveryPage;

namespace quillon
{
class ConsolePage;
class FieldHead;
class StatusLine;
class UpdateGateway;
} // namespace quillon

/// The console of the R47: its pages, its device, and the ways between them. GUI thread.
class MainWindow_R47 : public MainWindow_Base
{
    Q_OBJECT
public:
    explicit MainWindow_R47(QWidget* parent = nullptr);
    ~MainWindow_R47() override;

    void sendAuth() override;
    void applyWorkMode(int mode) override;
    /// Shows a page and opens its workspace, which tells the device all of it. An id that is no page is ignored.
    void setPage(int page);
    int pageId() const { return mPageID; }
    /// Where newer versions are asked for, and who hears what firmware the unit has. Null: nobody.
    void setUpdateGateway(quillon::UpdateGateway* gateway);
    /// Who makes and removes the entry that starts the program at log-in.
    void setAutoStarter(const std::function<void(bool)>& starter);

public slots:
    void in_USBAudio_attributeChanged(QString attribute, QString value) override;
    void in_mDevice_newFrameReceived(DeviceType1::FrameInfo frame);
    /// An event of the settings: an option or a work mode goes to the device, a mode that only the console knows to the page, an
    /// update to the connection window.
    void in_settings_attributeChanged(QString objectName, QString attribute, QString value);
    void on_PageFctyPushButton1_clicked();
    void on_PageFctyPushButton2_clicked();

signals:
    /// The device's serial identity, once per connection: what its firmware is asked for with.
    void firmwareIdentified(QString identity);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildPages();
    template<class Head> Head* addHead(quillon::PageId page);
    void showStreams(bool rates);
    void connectLinks();
    void endDialogs();
    void openWorkspace(const quillon::PageRow& row);
    void applySize();
    void keepSizes();
    void modifyScaleFactor();
    void modifyLanguage(const QString& language);
    void handleSystemFrame(const DeviceType1::FrameInfo& frame);
    void handOverForFirmware();
    quillon::ConsolePage* currentPage() const;

    DeviceR47 mDevice;
    quillon::InboundRouter mRouter;
    quillon::ConsoleLinks mLinks;
    quillon::FirmwareIdentity mIdentity;
    quillon::FirmwareHandover mHandover;
    QStackedWidget* mStack;
    RecoveryPage* mRecovery;
    quillon::StatusLine* mStatus;
    quillon::ConsoleWindows mWindows;
    std::array<FieldHeadS1M1*, quillon::PageCount> mWorkspaceBars{}; // by page id, null where there is no choice of workspaces
    std::vector<quillon::FieldHead*> mHeads;                         // the bars of all pages
    std::vector<quillon::ConsolePage*> mPages;                       // by page id, null for the two pages without a workspace
    QTimer mSizeTimer; // writes sizes when a drag has come to rest: each write waits for the disk
    bool mSplitterMoved = false;
    int mPageID = quillon::PageLive;
    int mSizedPage = -1; // the last one whose size step has run
};
