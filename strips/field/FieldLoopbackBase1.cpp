#include "strips/field/FieldLoopbackBase1.h"

#include "strips/loopback/LoopbackBase.h"

FieldLoopbackBase1& FieldLoopbackBase1::setWidgetList(const QList<LoopbackBase*>& strips)
{
    takeStrips(strips, true);
    return *this;
}
