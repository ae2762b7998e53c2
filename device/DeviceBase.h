#pragma once

#include "device/Sender.h"

#include <QByteArray>
#include <QThread>
#include <atomic>
#include <memory>

/// A device on the HID connection: its reader thread, and the writer thread that it owns. The object lives on the GUI thread,
/// which makes all calls unless told otherwise.
class DeviceBase : public QThread
{
    Q_OBJECT
public:
    explicit DeviceBase(QObject* parent = nullptr);
    /// Stops as stopDevice does and drops the HID connection. A derived class must call stopDevice in its own destructor, since
    /// the reader uses its readFrame.
    ~DeviceBase() override;

    void setUsbIdentity(unsigned vendorId, unsigned productId);
    unsigned vendorId() const { return mVendorId; }
    unsigned productId() const { return mProductId; }

    /// Starts the reader, then the writer, on the connection that the caller has opened. No effect while the reader runs.
    void startDevice();
    /// Ends both threads after the reports queued so far were written. The connection stays open. Takes under 2 s when the device
    /// is silent or has stopped reading; a writer held by such a device is left behind and what it had not written is dropped.
    void stopDevice();
    /// Queues one output report. Never waits for the device.
    void enqueueRaw(QByteArray bytes);
    /// Whether a flood of reports follows, as when a workspace is loaded: the writer makes itself ready for it.
    void expectFlood(bool expected);

signals:
    /// The connection is lost. Once per run, from the reader thread.
    void deviceDisconnected();

protected:
    void run() override;
    /// Reads one report on the reader thread, waiting a bounded time. -1: connection lost; 0: nothing to report; 1: reported.
    virtual int readFrame() = 0;

    qint32 mModelNumber = 0;

private:
    unsigned mVendorId = 0;
    unsigned mProductId = 0;
    std::atomic<bool> mStopRequested = true;
    std::atomic<bool> mReaderEnded = true; // the reader's last step, as the writer has one
    std::unique_ptr<Sender> mSender;
};
