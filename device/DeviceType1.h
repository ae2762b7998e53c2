#pragma once

#include "device/DeviceBase.h"
#include "device/Frame.h"

#include <QMetaType>

/// A device that speaks in frames of 16 bytes.
class DeviceType1 : public DeviceBase
{
    Q_OBJECT
public:
    using FrameInfo = quillon::Frame;

    explicit DeviceType1(QObject* parent = nullptr);
    ~DeviceType1() override;

    /// Queues a frame and returns at once. A frame sent while nothing is connected waits for the next start or is lost.
    void sendFrame(FrameInfo frame);

signals:
    /// A valid frame with a code. From the reader thread.
    void newFrameReceived(DeviceType1::FrameInfo frame);

protected:
    int readFrame() override;

    bool mLogFrames = false;
};

Q_DECLARE_METATYPE(DeviceType1::FrameInfo)
