#include "console/head/FieldHeadS1M2.h"

using namespace Qt::StringLiterals;

void FieldHeadS1M2::onAppSettingsChanged(QString, QString attribute, QString value)
{
    if (attribute == "Language"_L1) {
        setLanguage(value);
    }
}

void FieldHeadS1M2::in_item_attributeChanged(const QString& objectName, const QString& attribute, const QString& value)
{
    if (!setStream(objectName, value)) {
        emit attributeChanged(objectName, attribute, value);
    }
}
