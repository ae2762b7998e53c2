#include "strips/StripRow.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace quillon
{

namespace
{

/// As QString::number(value, 'g', 6), which has no -0 either, in a tenth of the time: each step of a drag passes here.
QString decimalText(float value)
{
    std::array<char, 24> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value + 0.0F, std::chars_format::general, 6).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

} // namespace

QVariant toVariant(ValueForm form, const StripValue& value)
{
    switch (form) {
    case ValueForm::Text:
        return std::get<QString>(value);
    case ValueForm::Flag:
        return std::get<int>(value) != 0;
    case ValueForm::Integer:
        return std::get<int>(value);
    case ValueForm::Decimal:
        break;
    }
    return std::get<float>(value);
}

StripValue fromVariant(ValueForm form, const QVariant& value)
{
    switch (form) {
    case ValueForm::Text:
        return value.toString();
    case ValueForm::Flag:
        return value.toBool() ? 1 : 0;
    case ValueForm::Integer:
        return value.toInt();
    case ValueForm::Decimal:
        break;
    }
    const float number = value.toFloat();
    return std::isfinite(number) ? number : 0.0F;
}

QString toText(ValueForm form, const StripValue& value)
{
    switch (form) {
    case ValueForm::Text:
        return std::get<QString>(value);
    case ValueForm::Flag:
    case ValueForm::Integer:
        return QString::number(std::get<int>(value));
    case ValueForm::Decimal:
        break;
    }
    return decimalText(std::get<float>(value));
}

StripValue unsent(ValueForm form)
{
    switch (form) {
    case ValueForm::Text:
        return QString();
    case ValueForm::Flag:
    case ValueForm::Integer:
        return std::numeric_limits<int>::min();
    case ValueForm::Decimal:
        break;
    }
    return -2147483648.0F;
}

} // namespace quillon
