#pragma once

#include "strips/field/FieldBase.h"

class InputBase;

/// A row of input strips, which stay where they are. GUI thread.
class FieldInputBase1 : public quillon::FieldBase
{
    Q_OBJECT
protected:
    using FieldBase::FieldBase;

    void setStrips(const QList<InputBase*>& strips);
};
