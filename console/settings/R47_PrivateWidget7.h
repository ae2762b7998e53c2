#pragma once

#include "app/AppSettingsSubject.h"
#include "strips/StripEndpoint.h"

namespace quillon
{
class SettingsRows;
}

/// The "Device" page of the settings: options that live in the device, not in a workspace. They come and go by frame. The setters
/// show and stay silent. GUI thread.
class R47_PrivateWidget7 final : public QWidget, public quillon::StripEndpoint, public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit R47_PrivateWidget7(QWidget* parent = nullptr);

    /// "Dim", "Normal", "Bright"; others leave the choice.
    void setBrightness(const QString& name);
    void setBluetooth(bool on);
    /// On: the port gives power.
    void setOtgDirection(bool on);
    /// "Charge", "Discharge", "Disabled"; others leave the choice.
    void setUsbCCharging(const QString& name);
    /// As the device counts it, which is the inverse of the switch.
    void setAutoPoweroff(bool value);
    /// Takes a mode as the present one, and shows it where it is one of the choices.
    void setDisplayMode(const QString& name);
    /// 0 to 13; others are ignored.
    void setMainButtonSingle(int index);
    void setMainButtonDouble(int index);

    /// "Brightness", "Bluetooth", "OtgDirection", "UsbCCharging", "AutoPoweroff", "MainButtonSingle", "MainButtonDouble": each
    /// takes the report as inboundValue() gives it.
    quillon::DeviceSetter deviceSetter(QStringView attribute) override;
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

signals:
    /// ("SettingsDevice", attribute, value): the user has set an option, or wants a mode, or the factory's state.
    void attributeChanged(QString objectName, QString attribute, QString value);

private:
    void rowEdited(int row, const QString& value);
    void askReset();

    quillon::SettingsRows* mRows;
};
