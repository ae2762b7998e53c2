#include "device/DeviceBase.h"

#include "device/USBHIDAPI.h"

#include <utility>

DeviceBase::DeviceBase(QObject* parent) : QThread(parent), mSender(std::make_unique<Sender>()) {}

DeviceBase::~DeviceBase()
{
    stopDevice();
    USBHIDAPI::instance().close();
}

void DeviceBase::setUsbIdentity(unsigned vendorId, unsigned productId)
{
    mVendorId = vendorId;
    mProductId = productId;
}

void DeviceBase::startDevice()
{
    if (!mReaderEnded.load()) {
        return;
    }
    stopDevice(); // completes a run that the device has ended
    mStopRequested.store(false);
    mReaderEnded.store(false);
    start(InheritPriority);
    mSender->begin();
}

void DeviceBase::stopDevice()
{
    mStopRequested.store(true);
    mSender->requestStop();
    wait();
    Q_ASSERT(mReaderEnded.load());
    if (!mSender->waitStopped()) {
        Sender::leaveBehind(mSender.release());
        mSender = std::make_unique<Sender>();
    }
}

void DeviceBase::enqueueRaw(QByteArray bytes)
{
    mSender->enqueue(std::move(bytes));
}

void DeviceBase::expectFlood(bool expected)
{
    mSender->expectFlood(expected);
}

void DeviceBase::run()
{
    while (!mStopRequested.load()) {
        if (readFrame() == -1) {
            mStopRequested.store(true);
            emit deviceDisconnected();
        }
    }
    mReaderEnded.store(true);
}
