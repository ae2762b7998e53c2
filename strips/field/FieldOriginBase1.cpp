#include "strips/field/FieldOriginBase1.h"

#include "strips/PlainStrip.h"

FieldOriginBase1& FieldOriginBase1::setWidgetList(const QList<quillon::PlainStrip*>& strips)
{
    takeStrips(strips, true);
    return *this;
}
