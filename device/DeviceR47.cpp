#include "device/DeviceR47.h"

#include "device/ParameterTable.h"

using namespace quillon;

namespace
{

/// What only concerns the workspace file.
bool isSaveEcho(const QString& attribute)
{
    return attribute.startsWith(QLatin1String("Save_"));
}

} // namespace

DeviceR47::DeviceR47(QObject* parent) : DeviceType1(parent)
{
    mModelNumber = 21;
}

DeviceR47::~DeviceR47()
{
    stopDevice();
}

void DeviceR47::in_fieldSystem_attributeChanged(QString objectName, QString attribute, QString value)
{
    sendRow(Family::System, objectName, attribute, value);
}

void DeviceR47::in_fieldHead_attributeChanged(QString objectName, QString attribute, QString value)
{
    sendParameter(Family::Head, objectName, attribute, value);
}

void DeviceR47::in_fieldInput_attributeChanged(QString objectName, QString attribute, QString value)
{
    sendParameter(Family::Input, objectName, attribute, value);
}

void DeviceR47::in_fieldMixer_attributeChanged(QString objectName, QString attribute, QString value)
{
    if (isSaveEcho(attribute)) {
        return;
    }
    send(crosspointCode(objectName, attribute), value.toInt());
}

void DeviceR47::in_fieldEffect_attributeChanged(QString objectName, QString attribute, QString value)
{
    sendParameter(Family::Effect, objectName, attribute, value);
}

void DeviceR47::in_fieldLoopback_attributeChanged(QString objectName, QString attribute, QString value)
{
    sendParameter(Family::Loopback, objectName, attribute, value);
}

void DeviceR47::in_fieldOutput_attributeChanged(QString objectName, QString attribute, QString value)
{
    sendParameter(Family::Output, objectName, attribute, value);
}

void DeviceR47::in_Others_attributeChanged(QString objectName, QString attribute, QString value)
{
    if (objectName == u"Workspace" && attribute == u"LoadSettings") {
        expectFlood(value == u"1");
    }
    sendParameter(Family::Others, objectName, attribute, value);
}

void DeviceR47::in_Equalizer_attributeChanged(QString objectName, QString attribute, QString value)
{
    const QStringView name = objectName;
    const qsizetype at = name.indexOf(u'@');
    if (at < 0) {
        sendRow(Family::Equalizer, objectName, attribute, value);
        return;
    }
    const QStringView rest = name.sliced(at + 1);
    const qsizetype end = rest.indexOf(u'@');
    const BandCodes codes = bandCodes(name.first(at), end < 0 ? rest : rest.first(end), attribute);
    const std::int32_t number = bandValue(attribute, value);
    send(codes.first, number);
    send(codes.second, number);
}

/// No frame for the address 0, which no parameter has.
void DeviceR47::send(int code, std::int32_t value)
{
    if (code != 0) {
        sendFrame({.code = code, .value = value});
    }
}

void DeviceR47::sendRow(Family family, QStringView objectName, QStringView attribute, QStringView value)
{
    const ParameterRow* row = findParameter(family, objectName, attribute);
    if (!row) {
        return;
    }
    for (const Target& target : {row->first, row->second}) {
        if (target.code != 0) {
            send(target.code, parameterValue(target.kind, row->choices, value));
        }
    }
}

void DeviceR47::sendParameter(Family family, const QString& objectName, const QString& attribute, const QString& value)
{
    if (!isSaveEcho(attribute)) {
        sendRow(family, objectName, attribute, value);
    }
}
