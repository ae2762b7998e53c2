#pragma once

#include "strips/field/PlainField.h"

class OutputBase;

/// A row of output strips, which can be hidden and brought back. GUI thread.
class FieldOutputBase1 : public quillon::PlainField
{
    Q_OBJECT
public:
    /// The strips in the order of the row, once. They stay the caller's, but must not go before the field.
    FieldOutputBase1& setWidgetList(const QList<OutputBase*>& strips);

protected:
    using PlainField::PlainField;
};
