// The part of the connection window that drives updates and shows their progress.

#include "connect/DeviceConnector.h"

#include "connect/DeviceConnectorViewBase.h"
#include "update/UpdateGateway.h"
#include "update/UpdaterSoftware.h"

#include <QScopedValueRollback>
#include <QSettings>

using namespace Qt::StringLiterals;
using namespace quillon;

void DeviceConnector::checkForUpdates(int restPage)
{
    if (!mUpdates->hasHost()) {
        return;
    }
    if (!QSettings().value("AutoCheckForUpdates").toBool()) {
        mUpdates->fetch();
        return;
    }
    mView->setPage(PageChecking);
    const QScopedValueRollback fetching(mFetching, true);
    if (mUpdates->fetchAndWait()) {
        offerOrRest(restPage);
    } else {
        mView->setPage(PageNetworkError);
    }
}

void DeviceConnector::offerOrRest(int restPage)
{
    const QString available = mUpdates->manifestText({u"Software"_s, u"Win"_s, u"Version"_s});
    if (available > UpdaterSoftware::programVersion()) {
        mView->setVersions(UpdaterSoftware::programVersion(), available);
        mView->setPage(PageUpdateOffered);
    } else {
        mView->setPage(restPage);
    }
}

void DeviceConnector::handleUpdateEvent(const QString& value)
{
    if (value == u"Cancel"_s) {
        mView->setPage(PageNoDevice);
        startPolling();
    } else if (value == u"RetryFetch"_s) {
        retryFetch();
    } else if (value == u"UpdateSoftware"_s || value == u"RetryDownloadSoftware"_s) {
        downloadSoftware();
    } else if (value == u"RetryDownloadFirmware"_s) {
        downloadFirmware();
    } else if (value == u"AutoCheckON"_s || value == u"AutoCheckOFF"_s) {
        QSettings().setValue("AutoCheckForUpdates", value == u"AutoCheckON"_s);
    }
}

void DeviceConnector::retryFetch()
{
    mView->setPage(PageChecking);
    if (mUpdates == nullptr) {
        mView->setPage(PageNetworkError);
        return;
    }
    // One connection more for each retry; the step repeats itself without harm, and it does not start to poll.
    connect(mUpdates, &UpdateGateway::fetchFinished, this, [this](bool success) {
        if (success) {
            offerOrRest(PageNoDevice);
        } else {
            mView->setPage(PageNetworkError);
        }
    });
    mUpdates->fetch();
}

void DeviceConnector::forgetFirmware()
{
    if (mUpdates != nullptr) {
        mUpdates->setFirmwareVersion(QString());
    }
}

void DeviceConnector::showProgressPage()
{
    mView->setPage(PageProgress);
    mView->setProgressText(QString());
    mView->setProgressValue(0);
    mView->setProgressMessage(QString());
}

void DeviceConnector::downloadSoftware()
{
    showProgressPage();
    if (mUpdates == nullptr) {
        mView->setPage(PageSoftwareDownloadFailed);
        return;
    }
    mUpdates->downloadSoftware(mUpdates->manifestText({u"Software"_s, u"Win"_s, u"URL"_s}));
}

void DeviceConnector::downloadFirmware()
{
    showProgressPage();
    if (mUpdates == nullptr) {
        mView->setPage(PageFirmwareDownloadFailed);
        return;
    }
    mUpdates->downloadFirmware(mUpdates->manifestText({u"Device"_s, mUpdateDevice, u"URL"_s}));
}

void DeviceConnector::startFirmwareUpdate(const QString& device, const QString& path)
{
    forgetFirmware();
    mUpdateDevice = device;
    showAtScale();
    retireConsole();
    if (path.isEmpty()) {
        downloadFirmware();
        return;
    }
    showProgressPage();
    if (mUpdates == nullptr) {
        mView->setPage(PageFirmwareUpdateFailed);
        return;
    }
    mUpdates->updateFirmware(path);
}

void DeviceConnector::in_updaterSoftware_attributeChanged(QString attribute, QString value)
{
    // A setup that has started ends the program, and shows nothing; one that does not leaves the user where the download can be
    // tried again.
    const bool isUpdate = attribute.startsWith(u"Update"_s);
    const bool failed = isUpdate ? attribute == u"UpdateState"_s && value == u"Failed"_s
                                 : mProgress.show(*mView, attribute, value) == UpdateProgress::Outcome::Failed;
    if (failed) {
        mView->setPage(PageSoftwareDownloadFailed);
    }
}

void DeviceConnector::in_updaterFirmware_attributeChanged(QString attribute, QString value)
{
    const bool updating = attribute.startsWith(u"Update"_s);
    const UpdateProgress::Outcome outcome = mProgress.show(*mView, attribute, value);
    if (outcome == UpdateProgress::Outcome::Failed) {
        mView->setPage(updating ? PageFirmwareUpdateFailed : PageFirmwareDownloadFailed);
    } else if (outcome == UpdateProgress::Outcome::Done && updating) {
        QTimer::singleShot(mTiming.updated, this, [this] { mView->setPage(PageFirmwareUpdateDone); });
    }
}
