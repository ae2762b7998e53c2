#include "equalizer/editor/EqWidgetItemData.h"

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
    const char16_t* name;
    QString (*value)(const EqWidgetItemData& data);
};
constexpr Field kFields[]{
    {EqWidgetItemData::Type, u"Type", [](const EqWidgetItemData& data) { return data.type; }},
    {EqWidgetItemData::Gain, u"Gain", [](const EqWidgetItemData& data) { return number(data.gain); }},
    {EqWidgetItemData::Freq, u"Freq", [](const EqWidgetItemData& data) { return number(data.frequency); }},
    {EqWidgetItemData::Q, u"Q", [](const EqWidgetItemData& data) { return number(data.q); }},
    {EqWidgetItemData::Switch, u"Switch", [](const EqWidgetItemData& data) { return QString::number(int(data.enabled)); }},
};

} // namespace

QList<BandAttribute> changedAttributes(const EqWidgetItemData& data)
{
    QList<BandAttribute> attributes;
    for (const Field& field : kFields) {
        if (data.changed & field.bit) {
            attributes.append({QString(field.name), field.value(data)});
        }
    }
    return attributes;
}

} // namespace quillon
