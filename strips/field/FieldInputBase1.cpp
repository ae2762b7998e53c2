#include "strips/field/FieldInputBase1.h"

#include "strips/input/InputBase.h"

void FieldInputBase1::setStrips(const QList<InputBase*>& strips)
{
    FieldBase::setStrips(strips, false);
}
