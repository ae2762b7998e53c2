#include "virtual/core/Names.h"

#include "device/InboundTable.h"
#include "device/ParameterTable.h"
#include "device/ValueLaws.h"
#include "virtual/core/DeviceModel.h"

#include <QString>
#include <charconv>
#include <cmath>

namespace r47
{

using namespace Qt::StringLiterals;
using quillon::InboundForm;

namespace
{

std::string narrow(std::u16string_view text)
{
    return QStringView(text).toString().toStdString();
}

std::string dotted(std::u16string_view object, std::u16string_view attribute)
{
    return narrow(object) + '.' + narrow(attribute);
}

const quillon::ParameterRow* rowOfCode(std::uint16_t code)
{
    for (const quillon::ParameterRow& row : quillon::parameterRows())
        if (row.first.code == code)
            return &row;
    return nullptr;
}

bool isNumber(QStringView text)
{
    bool good = false;
    const double number = text.toDouble(&good);
    return good && std::isfinite(number);
}

/// Whether the text is one of a row's choices, or any number where it has none.
bool fits(const quillon::ParameterRow& row, QStringView text)
{
    if (row.first.kind != quillon::ValueKind::Choice)
        return isNumber(text);
    for (const quillon::Choice& choice : row.choices)
        if (QStringView(choice.text) == text)
            return true;
    return false;
}

/// The wire value of what the console shows in the given form.
std::optional<std::int32_t> shownValue(const quillon::InboundRow& row, const QString& text)
{
    bool good = false;
    const float number = text.toFloat(&good);
    if (good && !(std::fabs(number) <= 1e6f))
        return {};
    switch (row.form) {
    case InboundForm::MicType:
    case InboundForm::NoiseType:
    case InboundForm::ReverbType:
    case InboundForm::Brightness:
    case InboundForm::Charging:
        if (const auto* sent = rowOfCode(row.code); sent && fits(*sent, text))
            return quillon::parameterValue(sent->first.kind, sent->choices, text);
        return {};
    case InboundForm::Level:
        if (text == "clip"_L1)
            return 1;
        if (good)
            return std::int32_t(std::lround(number * 10.0f));
        return {};
    case InboundForm::Aux:
        return good ? std::optional<std::int32_t>(gainToDeviceAux(number)) : std::nullopt;
    case InboundForm::Line:
        return good ? std::optional<std::int32_t>(gainToDeviceLine(number)) : std::nullopt;
    case InboundForm::Number:
    case InboundForm::Plain:
    case InboundForm::Flag:
    case InboundForm::Absent:
        break;
    }
    return good ? std::optional<std::int32_t>(std::lround(number)) : std::nullopt;
}

} // namespace

Names::Names() : mIndex(0x10000)
{
    add(0x1101, "Auth");
    add(0x1120, "LoadSettings");
    addRows();
    addCrosspoints();
    addBands();
    addReports();
}

void Names::add(std::uint16_t code, std::string name)
{
    if (code == 0)
        return;
    mCodes.try_emplace(name, code);
    if (mIndex[code] == 0) {
        mIndex[code] = std::uint16_t(mNames.size());
        mNames.push_back(std::move(name));
    }
}

void Names::addRows()
{
    // A code that several rows send is called after the plainest of them: alone in its row, and not an entry of a page's menu.
    for (int pass = 0; pass < 3; ++pass) {
        for (const quillon::ParameterRow& row : quillon::parameterRows()) {
            const bool isMenu = row.object.starts_with(u"ConfigMenu");
            if (pass != (row.second.code ? 2 : isMenu ? 1 : 0))
                continue;
            add(row.first.code, dotted(row.object, row.attribute));
            add(row.second.code, dotted(row.object, row.attribute));
        }
    }
}

void Names::addCrosspoints()
{
    for (const auto* source : {u"IN12", u"AUX", u"BT", u"OTGIN", u"FX", u"PB12", u"PB34", u"PB56", u"PB78", u"PB910"})
        for (const auto* bus : {u"MixA", u"MixB", u"MixC", u"MixD", u"MixE"})
            for (const auto* crosspoint : {u"GainMLCL", u"GainMLCR", u"GainMRCL", u"GainMRCR"}) {
                const std::u16string object = std::u16string(u"Mixer_") + source;
                const std::u16string attribute = std::u16string(bus) + u'_' + crosspoint;
                add(quillon::crosspointCode(object, attribute), dotted(object, attribute));
            }
}

void Names::addBands()
{
    for (const auto* equalizer : {u"EQ_HP", u"EQ_IN1", u"EQ_IN2"})
        for (int band = 1; band <= 10; ++band)
            for (const auto* attribute : {u"Switch", u"Type", u"Gain", u"Freq", u"Q"}) {
                const QString number = QString::number(band);
                const auto codes = quillon::bandCodes(QStringView(equalizer), number, QStringView(attribute));
                const std::string name = narrow(equalizer) + '@' + number.toStdString() + '.' + narrow(attribute);
                add(codes.first, name);
                add(codes.second, name);
            }
}

void Names::addReports()
{
    for (const quillon::InboundRow& row : quillon::inboundRows())
        add(row.code, dotted(row.object, row.attribute));
    constexpr std::pair<std::uint16_t, const char*> kOwn[] = {
        {0x1118, "Battery"},        {0x1119, "Charging"},       {0x1201, "Version"},         {0x1202, "Identity1"},
        {0x1203, "Identity2"},      {0x1204, "Identity3"},      {0x1205, "Identity4"},       {0x1206, "Identity5"},
        {0x9B0B, "EQ_IN1.MeterIn"}, {0x9B0C, "EQ_IN2.MeterIn"}, {0xAB0B, "EQ_HP.MeterLeft"}, {0xAB0C, "EQ_HP.MeterRight"},
    };
    for (const auto& [code, name] : kOwn)
        add(code, name);
}

std::optional<std::uint16_t> Names::code(const std::string& text) const
{
    if (const auto found = mCodes.find(text); found != mCodes.end())
        return found->second;
    const char* first = text.c_str() + (text.starts_with("0x") || text.starts_with("0X") ? 2 : 0);
    const char* last = text.c_str() + text.size();
    std::uint16_t code = 0;
    const auto [end, error] = std::from_chars(first, last, code, 16);
    if (error != std::errc() || end != last)
        return {};
    return code;
}

std::optional<PanelReport> Names::panel(const std::string& object, const std::string& attribute, const std::string& value,
                                        std::string& reason) const
{
    const QString wideObject = QString::fromStdString(object);
    const QString wideAttribute = QString::fromStdString(attribute);
    const QString text = QString::fromStdString(value);
    reason = "not a value of this control";
    for (const quillon::InboundRow& row : quillon::inboundRows()) {
        if (QStringView(row.object) != wideObject || QStringView(row.attribute) != wideAttribute)
            continue;
        if (const auto wire = shownValue(row, text))
            return PanelReport{row.code, *wire, row.form == InboundForm::Level};
        return {};
    }
    if (const auto at = wideObject.indexOf(u'@'); at > 0) {
        const auto codes = quillon::bandCodes(wideObject.left(at), wideObject.mid(at + 1), wideAttribute);
        if (isNumber(text) && isReported(codes.first))
            return PanelReport{codes.first, quillon::bandValue(wideAttribute, text), false};
    }
    for (const quillon::ParameterRow& row : quillon::parameterRows()) {
        if (QStringView(row.object) != wideObject || QStringView(row.attribute) != wideAttribute || !isReported(row.first.code))
            continue;
        if (!fits(row, text))
            return {};
        return PanelReport{row.first.code, quillon::parameterValue(row.first.kind, row.choices, text), false};
    }
    reason = "the unit has no such control";
    return {};
}

} // namespace r47
