#pragma once

#include "app/AppSettingsSubject.h"

#include <QPointer>

namespace quillon
{
class SettingsRows;
class UpdateGateway;
} // namespace quillon

/// The "About" page of the settings: who made what in which version, and whether there is a newer one. It asks whenever it is
/// shown. GUI thread.
class WidgetAbout1 final : public QWidget, public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit WidgetAbout1(QWidget* parent = nullptr);

    void setModel(const QString& model);
    /// The versions are dotted texts without a letter in front; empty: not known.
    void setHardwareVersion(const QString& version);
    void setFirmwareVersion(const QString& version);
    /// Is marked as a beta version unless it ends in ".0".
    void setSoftwareVersion(const QString& version);
    /// Where newer versions are asked for. Null, or one without a host: nowhere, the versions stand alone.
    void setUpdateGateway(quillon::UpdateGateway* gateway);

    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

signals:
    /// ("SettingsAbout", "UpdateFirmware" or "UpdateSoftware", "1"): the user wants the newer version.
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    void showEvent(QShowEvent* event) override;

private:
    enum class State { Idle, Fetching, Failed, Fetched };

    void rowEdited(int row);
    void fetch();
    void fetched(bool success);
    void showVersions();
    QString newest(int row) const;

    quillon::SettingsRows* mRows;
    QPointer<quillon::UpdateGateway> mGateway;
    State mState = State::Idle;
    QString mHardware;
    QString mFirmware;
    QString mSoftware;
};
