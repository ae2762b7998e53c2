#include "device/DeviceType1.h"

#include "device/USBHIDAPI.h"

#include <QDebug>
#include <utility>

using namespace Qt::StringLiterals;

DeviceType1::DeviceType1(QObject* parent) : DeviceBase(parent)
{
    qRegisterMetaType<FrameInfo>("DeviceType1::FrameInfo");
}

DeviceType1::~DeviceType1()
{
    stopDevice();
}

void DeviceType1::sendFrame(FrameInfo frame)
{
    const quillon::Report report = quillon::encodeOutput(frame);
    QByteArray bytes(reinterpret_cast<const char*>(report.data()), static_cast<qsizetype>(report.size()));
    const QString hex = mLogFrames ? QString::fromLatin1(bytes.toHex(' ').toUpper()).replace(u" "_s, u"  "_s) : QString();
    enqueueRaw(std::move(bytes));
    if (mLogFrames) {
        qDebug().noquote().nospace() << hex << '\t' << frame.value;
    }
}

int DeviceType1::readFrame()
{
    quillon::Report report{};
    const int length = USBHIDAPI::instance().read(report.data(), static_cast<int>(report.size()));
    if (length < 0) {
        return -1;
    }
    if (static_cast<std::size_t>(length) != report.size()) {
        return 0;
    }
    const auto frame = quillon::decodeInput(report);
    if (!frame) {
        return 0;
    }
    emit newFrameReceived(*frame);
    return 1;
}
