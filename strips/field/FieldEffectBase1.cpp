#include "strips/field/FieldEffectBase1.h"

#include "strips/effect/EffectBase.h"

FieldEffectBase1& FieldEffectBase1::setWidgetList(const QList<EffectBase*>& strips)
{
    takeStrips(strips, true);
    return *this;
}
