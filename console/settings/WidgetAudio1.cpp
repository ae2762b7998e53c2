#include "console/settings/WidgetAudio1.h"

#include "console/settings/SettingsRows.h"
#include "device/USBAudioAPI.h"

using namespace Qt::StringLiterals;
using quillon::LiveChoice;
using quillon::RowKind;
using quillon::RowShape;

namespace
{

enum Row { SampleRate, BufferSize, SafeMode };

constexpr RowShape kRows[]{
    {u"SampleRate", {u"Sample Rate", u"采样率"}, RowKind::Combo},
    {u"BufferSize", {u"Buffer Size", u"缓冲区大小"}, RowKind::Combo},
    {u"SafeMode", {u"Safe mode", u"安全模式"}, RowKind::Switch},
};

/// By row: how a value reaches the driver, and what the driver has (0 or less: it does not tell).
struct DriverWay {
    bool (*set)(USBAudioAPI&, unsigned value);
    int (*get)(USBAudioAPI&);
};
constexpr DriverWay kDriver[]{
    {[](USBAudioAPI& driver, unsigned value) { return driver.setSampleRateOfActiveDevice(value); },
     [](USBAudioAPI& driver) { return driver.getSampleRateOfActiveDevice(); }},
    {[](USBAudioAPI& driver, unsigned value) { return driver.setBufferSizeOfActiveDevice(value); },
     [](USBAudioAPI& driver) { return driver.getBufferSizeOfActiveDevice(); }},
    {[](USBAudioAPI& driver, unsigned value) { return driver.setSafeModeOfActiveDevice(value != 0); },
     [](USBAudioAPI& driver) { return driver.getSafeModeOfActiveDevice() ? 1 : 0; }},
};

QList<LiveChoice> choicesOf(const QList<int>& values, const QString& english, const QString& chinese)
{
    QList<LiveChoice> choices;
    for (const int value : values) {
        const QString number = QString::number(value);
        choices.append({number, number + u' ' + english, number + u' ' + chinese});
    }
    return choices;
}

} // namespace

WidgetAudio1::WidgetAudio1(QWidget* parent) : QWidget(parent), mRows(new quillon::SettingsRows(kRows, this))
{
    setObjectName(u"SettingsAudio"_s);
    setSampleRates({}, 0);
    setBufferSizes({}, 0);
    connect(mRows, &quillon::SettingsRows::edited, this, &WidgetAudio1::rowEdited);
}

void WidgetAudio1::setSampleRates(const QList<int>& rates, int current)
{
    mRows->setChoices(SampleRate, choicesOf(rates, u"Hz"_s, u"Hz"_s), QString::number(current));
}

void WidgetAudio1::setBufferSizes(const QList<int>& sizes, int current)
{
    mRows->setChoices(BufferSize, choicesOf(sizes, u"samples"_s, u"采样点"_s), QString::number(current));
}

void WidgetAudio1::setSafeMode(bool on)
{
    mRows->set(SafeMode, QString::number(int(on)));
}

void WidgetAudio1::onAppSettingsChanged(QString, QString attribute, QString value)
{
    mRows->applySetting(attribute, value);
}

void WidgetAudio1::rowEdited(int row, const QString& value)
{
    USBAudioAPI& driver = USBAudioAPI::instance();
    const DriverWay& way = kDriver[row];
    if (way.set(driver, value.toUInt())) {
        emit attributeChanged(objectName(), QString::fromUtf16(kRows[row].name), value);
        return;
    }
    mRows->takeBack(row, QString::number(way.get(driver)));
}
