// What the device reports, against what it can be told: the two tables are written apart and must agree.

#include "device/InboundTable.h"
#include "device/ParameterTable.h"
#include "device/ValueLaws.h"

#include <QTest>
#include <limits>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

QString text(std::u16string_view view)
{
    return QString::fromUtf16(view.data(), static_cast<qsizetype>(view.size()));
}

/// The row of the parameter table that sets what a row of the inbound table reports; null for meters and plugs.
const ParameterRow* setterOf(const InboundRow& row)
{
    const bool effect = row.object == u"Effect";
    const bool output = row.object.starts_with(u"Output_");
    const QString object = effect ? u"Effect_Integration"_s : text(row.object);
    const QString attribute = output && row.attribute == u"GAIN" ? u"GAINRight"_s : text(row.attribute);
    for (const Family family : {Family::Input, Family::Output, Family::Effect, Family::Others}) {
        if (const ParameterRow* found = findParameter(family, object, attribute)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

class TestInbound : public QObject
{
    Q_OBJECT
private slots:
    void everyCodeFindsItsOwnRow();
    void reportsUseTheAddressesOfTheirParameters();
    void choicesComeBackAsTheyWent();
    void gainsComeBackAsTheyWent();
    void bandsComeBackAsTheyWent();
    void everyParameterFindsItsOwnRow();
    void valueForms();
};

void TestInbound::everyCodeFindsItsOwnRow()
{
    const auto rows = inboundRows();
    int known = 0;
    for (int code = 0; code <= 0xFFFF; ++code) {
        const int index = inboundIndex(static_cast<std::uint16_t>(code));
        if (index >= 0) {
            ++known;
            QCOMPARE(int{rows[static_cast<std::size_t>(index)].code}, code);
            QVERIFY2((code & 0xF000) != 0x5000, "loopbacks are not reported");
        }
    }
    QCOMPARE(static_cast<std::size_t>(known), rows.size());
}

void TestInbound::reportsUseTheAddressesOfTheirParameters()
{
    int shared = 0;
    for (const InboundRow& row : inboundRows()) {
        if (const ParameterRow* setter = setterOf(row)) {
            // Of a stereo pair the device reports the right side.
            const std::uint16_t code = setter->second.code ? setter->second.code : setter->first.code;
            QCOMPARE(row.code, code);
            QCOMPARE(row.form == InboundForm::Aux, setter->first.kind == ValueKind::Wide);
            QCOMPARE(row.form == InboundForm::Line, setter->first.kind == ValueKind::Narrow);
            ++shared;
        }
    }
    QCOMPARE(shared, 28);
}

void TestInbound::choicesComeBackAsTheyWent()
{
    int lists = 0;
    for (const InboundRow& row : inboundRows()) {
        const ParameterRow* setter = setterOf(row);
        if (!setter || setter->choices.empty()) {
            continue;
        }
        ++lists;
        for (const Choice& choice : setter->choices) {
            QCOMPARE(inboundValue(row.form, choice.value).toString(), text(choice.text));
        }
        const bool dropped = row.object == u"SettingsDevice"; // the others take the first choice for an unknown one
        QCOMPARE(inboundValue(row.form, -7).toString(), dropped ? QString() : text(setter->choices.front().text));
    }
    QCOMPARE(lists, 5);
}

void TestInbound::gainsComeBackAsTheyWent()
{
    for (int index = 1; index <= 99; ++index) {
        QCOMPARE(gainToDeviceAux(deviceToGainAux(index)), index);
        QCOMPARE(gainToDeviceLine(deviceToGainLine(index)), index);
        QVERIFY(deviceToGainAux(index) > deviceToGainAux(index - 1));
        QVERIFY(deviceToGainLine(index) > deviceToGainLine(index - 1));
    }
    // The lowest index: what it shows goes out as the same index again.
    QCOMPARE(gainToDeviceAux(deviceToGainAux(0)), 0);
    QCOMPARE(gainToDeviceLine(deviceToGainLine(0)), 0);
    QCOMPARE(deviceToGainAux(0), -90.F);
    QCOMPARE(deviceToGainLine(0), -89.F);
    QCOMPARE(deviceToGainAux(99), 9.F);
    QCOMPARE(deviceToGainLine(99), 0.F);
    QCOMPARE(gainToDeviceAux(-9.8F), 61); // truncated, not rounded
    QCOMPARE(gainToDeviceAux(-86.5F), 1);
}

void TestInbound::bandsComeBackAsTheyWent()
{
    int known = 0;
    for (int code = 0; code <= 0xFFFF; ++code) {
        const InboundBand band = inboundBand(static_cast<std::uint16_t>(code));
        if (band.equalizer.empty()) {
            continue;
        }
        ++known;
        const QString attribute = text(band.attribute);
        QCOMPARE(int{bandCodes(text(band.equalizer), QString::number(band.band), attribute).first}, code);
        QCOMPARE(inboundIndex(static_cast<std::uint16_t>(code)), -1);
        for (const std::int32_t value : {-120, 0, 1, 35, 7070, 22000}) {
            QCOMPARE(bandValue(attribute, inboundBandText(band.attribute, value)), value);
        }
    }
    QCOMPARE(known, 3 * 10 * 5);
    QCOMPARE(inboundBandText(u"Type", std::numeric_limits<int>::min()), u"-2147483649"_s); // no wrap to a real type
    QCOMPARE(inboundBandText(u"Q", 7070), u"0.707"_s);
}

void TestInbound::everyParameterFindsItsOwnRow()
{
    for (const ParameterRow& row : parameterRows()) {
        const QString object = text(row.object);
        const QString attribute = text(row.attribute);
        QCOMPARE(findParameter(row.family, object, attribute), &row);
        QCOMPARE(findParameter(row.family, object + attribute, QString()), nullptr);
        QCOMPARE(findParameter(row.family, object, attribute + u'x'), nullptr);
    }
}

void TestInbound::valueForms()
{
    constexpr int kMost = std::numeric_limits<int>::max();
    QCOMPARE(inboundValue(InboundForm::Flag, -kMost - 1), QVariant(true));
    // No index of the scale, and no crash.
    QCOMPARE(inboundValue(InboundForm::Aux, kMost), QVariant(1073741824.F));
    QCOMPARE(inboundValue(InboundForm::Line, -kMost - 1), QVariant(-89.F));
}

QTEST_GUILESS_MAIN(TestInbound)
#include "tst_inbound.moc"
