#include "strips/field/FieldOutputBase1.h"

#include "strips/output/OutputBase.h"

FieldOutputBase1& FieldOutputBase1::setWidgetList(const QList<OutputBase*>& strips)
{
    takeStrips(strips, true);
    return *this;
}
