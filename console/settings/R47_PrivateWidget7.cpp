#include "console/settings/R47_PrivateWidget7.h"

#include "console/settings/SettingsRows.h"
#include "controls/ConsoleQuestion.h"
#include "controls/MessageBoxWidget.h"

using namespace Qt::StringLiterals;
using quillon::RowChoice;
using quillon::RowKind;
using quillon::RowShape;

namespace
{

enum Row {
    Bluetooth,
    Brightness,
    OtgDirection,
    UsbCCharging,
    DisplayMode,
    AutoPoweroff,
    RestoreDefault,
    MainButtonSingle,
    MainButtonDouble
};

constexpr RowChoice kBrightness[]{
    {u"Dim", {u"Dim", u"低"}},
    {u"Normal", {u"Normal", u"中"}},
    {u"Bright", {u"Bright", u"高"}},
};
constexpr RowChoice kOtgDirection[]{
    {u"Discharge", {u"Discharge", u"放电"}},
    {u"Off", {u"Off", u"关闭"}},
};
constexpr RowChoice kUsbCCharging[]{
    {u"Charge", {u"Charge", u"充电"}},
    {u"Discharge", {u"Discharge", u"放电"}},
    {u"Disabled", {u"Off", u"关闭"}},
};
constexpr RowChoice kDisplayMode[]{
    {u"Mobile mode", {u"Mobile mode", u"移动端模式"}},
    {u"Live streaming mode", {u"Live streaming mode", u"PC直播模式"}},
    {u"Pro audio mode", {u"Pro audio mode", u"专业录音模式"}},
};
constexpr RowChoice kMainButton[]{
    {u"0", {u"Battery Level", u"查看电量"}},
    {u"1", {u"Mute IN1&2", u"输入1和2 静音"}},
    {u"2", {u"Mute HP Out", u"耳机输出静音"}},
    {u"3", {u"Mute OTG Out", u"OTG输出静音"}},
    {u"4", {u"Toggle User 1/2", u"用户配置1/2 切换"}},
    {u"5", {u"Chat/Sing scene", u"聊天/唱歌 切换"}},
    {u"6", {u"Brightness", u"亮度调节"}},
    {u"7", {u"OTG power setting", u"OTG放电开关"}},
    {u"8", {u"USB power setting", u"USB充放电设置"}},
    {u"9", {u"Mobile/live/Pro mode", u"模式切换"}},
    {u"10", {u"IN1 48V On/Off", u"输入1 48V开关"}},
    {u"11", {u"IN2 48V On/Off", u"输入2 48V开关"}},
    {u"12", {u"IN1&2 48V On/Off", u"输入1和2 48V开关"}},
    {u"13", {u"No function", u"无功能"}},
};

constexpr RowShape kRows[]{
    {u"Bluetooth", {u"Bluetooth", u"蓝牙"}, RowKind::Switch},
    {u"Brightness", {u"Brightness", u"亮度调节"}, RowKind::Combo, kBrightness},
    {u"OtgDirection", {u"OTG port power setting", u"OTG接口电源设置"}, RowKind::Combo, kOtgDirection},
    {u"UsbCCharging", {u"USB-C port power setting", u"USB-C接口电源设置"}, RowKind::Combo, kUsbCCharging},
    {u"DisplayMode", {u"Mode select", u"模式选择"}, RowKind::Combo, kDisplayMode},
    {u"AutoPoweroff", {u"Auto power-off", u"自动关机"}, RowKind::Switch},
    {u"RestoreDefault", {u"Reset to factory default", u"恢复设备出厂设置"}, RowKind::Button, {}, {u"Reset", u"恢复出厂"}},
    {u"MainButtonSingle", {u"Main button single-click customization", u"主按键单击自定义功能"}, RowKind::Combo, kMainButton},
    {u"MainButtonDouble", {u"Main button double-click customization", u"主按键双击自定义功能"}, RowKind::Combo, kMainButton},
};

struct DeviceSet {
    const char16_t* attribute;
    void (*take)(R47_PrivateWidget7&, const QVariant& value);
};
constexpr DeviceSet kDeviceSets[]{
    {u"Brightness", [](R47_PrivateWidget7& page, const QVariant& value) { page.setBrightness(value.toString()); }},
    {u"Bluetooth", [](R47_PrivateWidget7& page, const QVariant& value) { page.setBluetooth(value.toInt() != 0); }},
    {u"OtgDirection", [](R47_PrivateWidget7& page, const QVariant& value) { page.setOtgDirection(value.toInt() != 0); }},
    {u"UsbCCharging", [](R47_PrivateWidget7& page, const QVariant& value) { page.setUsbCCharging(value.toString()); }},
    {u"AutoPoweroff", [](R47_PrivateWidget7& page, const QVariant& value) { page.setAutoPoweroff(value.toInt() != 0); }},
    {u"MainButtonSingle", [](R47_PrivateWidget7& page, const QVariant& value) { page.setMainButtonSingle(value.toInt()); }},
    {u"MainButtonDouble", [](R47_PrivateWidget7& page, const QVariant& value) { page.setMainButtonDouble(value.toInt()); }},
};

QString flag(bool on)
{
    return on ? u"1"_s : u"0"_s;
}

/// A value of a row as the device counts it.
QString deviceValue(int row, const QString& value)
{
    switch (row) {
    case OtgDirection:
        return flag(value == "Discharge"_L1);
    case AutoPoweroff:
        return flag(value != "1"_L1);
    default:
        return value;
    }
}

} // namespace

R47_PrivateWidget7::R47_PrivateWidget7(QWidget* parent) : QWidget(parent), mRows(new quillon::SettingsRows(kRows, this))
{
    setObjectName(u"SettingsDevice"_s);
    connect(mRows, &quillon::SettingsRows::edited, this, &R47_PrivateWidget7::rowEdited);
}

void R47_PrivateWidget7::setBrightness(const QString& name)
{
    mRows->set(Brightness, name);
}

void R47_PrivateWidget7::setBluetooth(bool on)
{
    mRows->set(Bluetooth, flag(on));
}

void R47_PrivateWidget7::setOtgDirection(bool on)
{
    mRows->set(OtgDirection, on ? u"Discharge"_s : u"Off"_s);
}

void R47_PrivateWidget7::setUsbCCharging(const QString& name)
{
    mRows->set(UsbCCharging, name);
}

void R47_PrivateWidget7::setAutoPoweroff(bool value)
{
    mRows->set(AutoPoweroff, flag(!value));
}

void R47_PrivateWidget7::setDisplayMode(const QString& name)
{
    mRows->set(DisplayMode, name);
    mRows->keep(DisplayMode, name); // the Easy mode is none of the choices, and still what another one is a change from
}

void R47_PrivateWidget7::setMainButtonSingle(int index)
{
    mRows->set(MainButtonSingle, QString::number(index));
}

void R47_PrivateWidget7::setMainButtonDouble(int index)
{
    mRows->set(MainButtonDouble, QString::number(index));
}

quillon::DeviceSetter R47_PrivateWidget7::deviceSetter(QStringView attribute)
{
    for (const DeviceSet& set : kDeviceSets)
        if (attribute == set.attribute)
            return [this, take = set.take](const QVariant& value) { take(*this, value); };
    return {};
}

void R47_PrivateWidget7::onAppSettingsChanged(QString, QString attribute, QString value)
{
    mRows->applySetting(attribute, value);
}

void R47_PrivateWidget7::rowEdited(int row, const QString& value)
{
    if (row == RestoreDefault)
        askReset();
    else
        emit attributeChanged(objectName(), QString::fromUtf16(kRows[row].name), deviceValue(row, value));
}

/// The device is told the same for both choices.
void R47_PrivateWidget7::askReset()
{
    const QString language = mRows->isChinese() ? u"Chinese"_s : u"English"_s;
    quillon::askOverConsole(this, new MessageBoxWidget4, language, [this](int result) {
        if (result == 2 || result == 3)
            emit attributeChanged(objectName(), u"RestoreDefault"_s, u"1"_s);
    });
}
