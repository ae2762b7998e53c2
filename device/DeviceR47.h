#pragma once

#include "device/DeviceType1.h"

#include <QString>

namespace quillon
{
enum class Family : std::uint8_t;
}

/// The R47: makes frames of the attribute events of the console. No memory: each event makes its frames at once, one or two,
/// and none when its names are no parameter of the slot's family. Text that is no number counts as 0. GUI thread.
class DeviceR47 : public DeviceType1
{
    Q_OBJECT
public:
    explicit DeviceR47(QObject* parent = nullptr);
    ~DeviceR47() override;

public slots:
    void in_fieldSystem_attributeChanged(QString objectName, QString attribute, QString value);
    void in_fieldHead_attributeChanged(QString objectName, QString attribute, QString value);
    void in_fieldInput_attributeChanged(QString objectName, QString attribute, QString value);
    void in_fieldMixer_attributeChanged(QString objectName, QString attribute, QString value);
    void in_fieldEffect_attributeChanged(QString objectName, QString attribute, QString value);
    void in_fieldLoopback_attributeChanged(QString objectName, QString attribute, QString value);
    void in_fieldOutput_attributeChanged(QString objectName, QString attribute, QString value);
    void in_Others_attributeChanged(QString objectName, QString attribute, QString value);
    void in_Equalizer_attributeChanged(QString objectName, QString attribute, QString value);

private:
    void send(int code, std::int32_t value);
    void sendRow(quillon::Family family, QStringView objectName, QStringView attribute, QStringView value);
    void sendParameter(quillon::Family family, const QString& objectName, const QString& attribute, const QString& value);
};
