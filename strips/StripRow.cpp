#include "strips/StripRow.h"

#include <cmath>
#include <limits>

namespace quillon
{

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
    return QString::number(static_cast<double>(std::get<float>(value)), 'g', 6);
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
