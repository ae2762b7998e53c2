#include "equalizer/editor/EqWidgetItemData.h"

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

QString number(float value)
{
    return QString::number(double(value), 'g', 6);
}

struct Field {
    EqWidgetItemData::Change bit;
    QLatin1StringView name;
    QString (*value)(const EqWidgetItemData& data);
};
constexpr Field kFields[]{
    {EqWidgetItemData::Type, "Type"_L1, [](const EqWidgetItemData& data) { return data.type; }},
    {EqWidgetItemData::Gain, "Gain"_L1, [](const EqWidgetItemData& data) { return number(data.gain); }},
    {EqWidgetItemData::Freq, "Freq"_L1, [](const EqWidgetItemData& data) { return number(data.frequency); }},
    {EqWidgetItemData::Q, "Q"_L1, [](const EqWidgetItemData& data) { return number(data.q); }},
    {EqWidgetItemData::Switch, "Switch"_L1, [](const EqWidgetItemData& data) { return QString::number(int(data.enabled)); }},
};

} // namespace

QList<BandAttribute> changedAttributes(const EqWidgetItemData& data)
{
    QList<BandAttribute> attributes;
    for (const Field& field : kFields) {
        if (data.changed & field.bit) {
            attributes.append({field.name, field.value(data)});
        }
    }
    return attributes;
}

} // namespace quillon
