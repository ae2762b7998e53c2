#include "console/MainWindow_R47.h"

#include "app/AppSettingsSubject.h"
#include "app/SingleInstanceManager.h"
#include "console/ConsolePage.h"
#include "console/EasySetup.h"
#include "console/PageSize.h"
#include "console/RecoveryPage.h"
#include "console/SettingsWindow.h"
#include "console/StatusLine.h"
#include "console/head/FieldHeadS1M1.h"
#include "console/head/FieldHeadS1M2.h"
#include "console/pages/Pages.h"
#include "controls/Popups.h"
#include "processing/AutoGainS1M1.h"
#include "workspace/WorkspaceSubject.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QSettings>
#include <QStatusBar>
#include <utility>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

constexpr unsigned kVendorId = 0x152A;
constexpr unsigned kProductId = 0x875C;
constexpr int kSizeRestMs = 200;

float scaleFactor()
{
    return QSettings().value("ScaleFactor").toFloat();
}

} // namespace

MainWindow_R47::MainWindow_R47(QWidget* parent)
    : MainWindow_Base(parent), mStack(new QStackedWidget(this)), mRecovery(new RecoveryPage), mStatus(new StatusLine(*statusBar())),
      mWindows(*this, mDevice, mRouter, mLinks)
{
    mDevice.setUsbIdentity(kVendorId, kProductId);
    setObjectName(u"MainWindow_R47"_s);
    // A palette, not a style sheet: a sheet on the window would put every control of the console under the style engine.
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    mStack->setObjectName(u"stackedWidget"_s);
    setCentralWidget(mStack);
    // Nothing is under the keyboard until the user says so: the first control is a name field, and a stray key would rename a
    // strip.
    mStack->setFocusPolicy(Qt::ClickFocus);
    mStack->setFocus();

    buildPages();
    connectLinks();
    modifyLanguage(QSettings().value("Language").toString());

    if (QSettings settings; !settings.contains(kPageIdKey)) {
        settings.setValue(kPageIdKey, static_cast<int>(PageLive));
    }
    connect(&mDevice, &DeviceR47::newFrameReceived, this, &MainWindow_R47::in_mDevice_newFrameReceived, Qt::UniqueConnection);
    setDevice(&mDevice, u"R47"_s);
}

MainWindow_R47::~MainWindow_R47()
{
    // The strips die with this window; the store must not load into them again.
    WorkspaceSubject::instance().clearObservers();
    keepSizes();
}

void MainWindow_R47::buildPages()
{
    mPages.resize(PageCount, nullptr);
    for (const PageRow& row : pageRows()) {
        if (row.id == PageFcty) {
            mStack->addWidget(mRecovery);
        } else {
            auto* page = new ConsolePage(row);
            mStack->addWidget(page);
            mPages[static_cast<std::size_t>(row.id)] = row.folder ? page : nullptr;
        }
    }
    mLinks.showPage = [this](PageId page) {
        QMetaObject::invokeMethod(
            this, [this, page] { setPage(page); }, Qt::QueuedConnection);
    };
    struct Builder {
        PageId page;
        void (*build)(PageKit& kit);
    };
    for (const auto& [page, build] : {Builder{PageMble, buildMobilePage}, Builder{PageLive, buildLivePage},
                                      Builder{PageTyro, buildEasyPage}, Builder{PageProf, buildProPage}}) {
        if (mPages[page]->row().fixedWorkspace) {
            addHead<FieldHeadS1M2>(page);
        } else {
            mWorkspaceBars[page] = addHead<FieldHeadS1M1>(page);
            connect(mWorkspaceBars[page], &FieldHeadS1M1::workspaceOpened, mStatus, &StatusLine::setWorkspace);
        }
        PageKit kit(*mPages[page], mDevice, mRouter, mLinks);
        build(kit);
    }
    mWindows.join(mPages);
}

template<class Head> Head* MainWindow_R47::addHead(PageId page)
{
    auto* head = new Head(u"FieldHead"_s);
    head->setFont(GlobalFont::instance().font());
    AppSettingsSubject::instance().addObserver(head);
    connect(head, &Head::attributeChanged, &mDevice, &DeviceR47::in_fieldHead_attributeChanged, Qt::UniqueConnection);
    connect(head, &Head::attributeChanged, this, [this](const QString& object, const QString&, const QString&) {
        if (object == u"SystemSettings"_s) {
            mWindows.settings().show();
        }
    });
    mPages[page]->setHead(head);
    mHeads.push_back(head);
    return head;
}

void MainWindow_R47::connectLinks()
{
    connect(mRecovery, &RecoveryPage::onlineRequested, this, &MainWindow_R47::on_PageFctyPushButton1_clicked);
    connect(mRecovery, &RecoveryPage::manualRequested, this, &MainWindow_R47::on_PageFctyPushButton2_clicked);
    connect(&mHandover, &FirmwareHandover::ready, this, &MainWindow_R47::on_PageFctyPushButton1_clicked);
    connect(&mWindows.settings(), &SettingsWindow::attributeChanged, this, &MainWindow_R47::in_settings_attributeChanged);
    connect(mStatus, &StatusLine::easyRequested, this,
            [this] { in_settings_attributeChanged(u"SettingsDevice"_s, u"DisplayMode"_s, u"Easy mode"_s); });
    connect(&WorkspaceSubject::instance(), &WorkspaceSubject::attributeChanged, &mDevice, &DeviceR47::in_Others_attributeChanged,
            Qt::UniqueConnection);
    connect(&AppSettingsSubject::instance(), &AppSettingsSubject::attributeChanged, this,
            [this](const QString&, const QString& attribute, const QString& value) {
                if (attribute == u"ModifyScaleFactor"_s) {
                    modifyScaleFactor();
                } else if (attribute == u"ModifyLanguage"_s) {
                    modifyLanguage(value);
                }
            });
    for (ConsolePage* page : mPages) {
        if (page == nullptr) {
            continue;
        }
        for (QSplitter* splitter : page->splitters()) {
            connect(splitter, &QSplitter::splitterMoved, this, [this] {
                mSplitterMoved = true;
                mSizeTimer.start();
            });
        }
    }
    mSizeTimer.setSingleShot(true);
    mSizeTimer.setInterval(kSizeRestMs);
    connect(&mSizeTimer, &QTimer::timeout, this, &MainWindow_R47::keepSizes);

    auto* quit = new QAction(this);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, qApp, &QCoreApplication::quit);
    addAction(quit);
}

void MainWindow_R47::sendAuth()
{
    mDevice.in_fieldSystem_attributeChanged(u"MainWindow"_s, u"Auth"_s, u"1"_s);
}

void MainWindow_R47::applyWorkMode(int mode)
{
    switch (mode) {
    case -1:
        setPage(PageFcty);
        break;
    case 1:
        setPage(PageMble);
        break;
    case 2:
        setPage(QSettings().value(kPageIdKey).toInt());
        break;
    case 3:
        setPage(PageProf);
        break;
    default:
        break;
    }
}

void MainWindow_R47::setPage(int page)
{
    const PageRow* row = pageRow(page);
    if (row == nullptr) {
        return;
    }
    endDialogs();
    if (mSizeTimer.isActive()) {
        // The sizes that wait belong to the page that is being left.
        keepSizes();
    }
    mPageID = page;
    mStack->setCurrentIndex(page);
    mStatus->setMode(QString::fromUtf8(row->modeWord), QString::fromUtf8(row->modeWordZh));
    mStatus->setEasyOffered(page == PageLive);
    WorkspaceSubject::instance().clearObservers();
    mWindows.setPage(row->id);
    if (page == PageFcty) {
        const float scale = scaleFactor();
        mStatus->setWorkspace({});
        statusBar()->hide();
        setFixedSize(static_cast<int>(scale * kRecoveryWidth), static_cast<int>(scale * kPageHeight));
        return;
    }
    if (row->folder == nullptr) {
        return;
    }
    if (page == PageLive || page == PageTyro) {
        // A write waits for the disk, and most page switches bring the page that is stored.
        if (QSettings settings; settings.value(kPageIdKey).toInt() != page) {
            settings.setValue(kPageIdKey, page);
        }
    }
    if (page == PageTyro) {
        sendEasySetup(mDevice);
    }
    openWorkspace(*row);
    applySize();
}

/// What is open over the page would go on for strips that are not shown any more.
void MainWindow_R47::endDialogs()
{
    closePopups(*this);
    for (AutoGainS1M1* dialog : findChildren<AutoGainS1M1*>()) {
        dialog->cancel();
    }
}

void MainWindow_R47::openWorkspace(const PageRow& row)
{
    WorkspaceSubject& subject = WorkspaceSubject::instance();
    subject.addObservers(currentPage()->observers());
    subject.setWorkspaceInfo(u"R47"_s, QString::fromLatin1(row.folder), QString::fromLatin1(row.prefix));
    if (FieldHeadS1M1* bar = mWorkspaceBars[row.id]) {
        bar->setWorkspaces(subject.workspaceNames(), QSettings().value(subject.rememberKey()).toString());
        mStatus->setWorkspace(bar->workspace());
        return;
    }
    const QString name = QString::fromLatin1(row.fixedWorkspace);
    if (!subject.isWorkspaceValid(name)) {
        subject.createWorkspace(name);
    }
    subject.modifyWorkspace(name, 0);
    if (!subject.isCurrent(name)) { // the page must not go on in the workspace of the one before
        subject.close();
    }
    mStatus->setWorkspace({});
}

void MainWindow_R47::applySize()
{
    const PageRow* row = pageRow(mPageID);
    if (row->widthKey != nullptr) {
        applyPageSize(*this, *row, currentPage()->splitters(), scaleFactor());
    } else if (mPageID == PageTyro && mSizedPage < 0) {
        // As the first page it would have no size at all; it borrows the Live page's without touching what that one keeps.
        applyPageSize(*this, *pageRow(PageLive), {}, scaleFactor(), SizeMemory::None);
    } else {
        return;
    }
    mSizedPage = mPageID;
}

ConsolePage* MainWindow_R47::currentPage() const
{
    return mPages[static_cast<std::size_t>(mPageID)];
}

void MainWindow_R47::keepSizes()
{
    mSizeTimer.stop();
    if (mSizedPage != mPageID) { // what the window is as wide as is not the page's yet
        return;
    }
    const PageRow& page = *pageRow(mPageID);
    keepPageWidth(page, width());
    if (std::exchange(mSplitterMoved, false) && currentPage() != nullptr) {
        keepSplitters(page, currentPage()->splitters());
    }
}

void MainWindow_R47::modifyScaleFactor()
{
    mWindows.setScaleFactor(scaleFactor());
    if (!inHandshake()) {
        dropPageSizes();
    }
    if (pageRow(mPageID)->widthKey != nullptr) {
        applySize();
    }
}

void MainWindow_R47::modifyLanguage(const QString& language)
{
    mRecovery->setLanguage(language);
    mStatus->setLanguage(language);
}

void MainWindow_R47::resizeEvent(QResizeEvent* event)
{
    mStatus->fit(height());
    for (ConsolePage* page : mPages) {
        if (page != nullptr) {
            page->fit(height());
        }
    }
    if (mSizedPage == mPageID) {
        mSizeTimer.start();
    }
    MainWindow_Base::resizeEvent(event);
}

void MainWindow_R47::closeEvent(QCloseEvent* event)
{
    event->setAccepted(false);
    keepSizes();
    SingleInstanceManager::instance().stepBack(*this);
    mWindows.hide();
}
