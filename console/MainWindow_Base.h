#pragma once

#include "device/DeviceType1.h"

#include <QMainWindow>
#include <QTimer>

/// What any console window needs of a connection: the hello with its retries, the hand-over, and the loss of the device.
/// GUI thread. Events with an empty object name go to the connection window.
class MainWindow_Base : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow_Base(QWidget* parent = nullptr);
    ~MainWindow_Base() override;

    /// Keeps both and listens for the loss of the device.
    void setDevice(DeviceBase* device, QString name);
    /// Opens the HID channel and says hello; without HID the window goes to its recovery page at once.
    void startConnection();
    /// Ends the hello. 0: failed; -1: no HID; else the work mode that the device reported.
    void finishAuth(int result);
    /// Ends the window's part in the connection for good: no timer, and no answer of the device counts any more.
    void endConnection();

    virtual void sendAuth() = 0;
    virtual void applyWorkMode(int mode) = 0;

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

public slots:
    void in_mTimerFrameRate_timeout();
    void in_mTimerAuth_timeout();
    void in_mTimerOnline_timeout();
    virtual void in_USBAudio_attributeChanged(QString attribute, QString value) = 0;
    void in_mDevice_deviceDisconnected();

protected:
    /// Counts for the frame rate line, while that runs.
    void countMeterFrame();
    /// Inside finishAuth(), while it passes the stored language and scale on: the settings then have not changed.
    bool inHandshake() const { return mInHandshake; }
    /// Time between two hellos in milliseconds.
    void setHelloInterval(int intervalMs) { mTimerAuth.setInterval(intervalMs); }

private:
    bool openChannel() const;

    DeviceBase* mDevice = nullptr;
    QString mDeviceName;
    QTimer mTimerFrameRate;
    QTimer mTimerAuth;
    QTimer mTimerOnline;
    int mMeterFrames = 0;
    int mAuthRetries = 0;
    bool mInHandshake = false;
    bool mEnded = false;
};
