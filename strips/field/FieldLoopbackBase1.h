#pragma once

#include "strips/field/PlainField.h"

class LoopbackBase;

/// A row of loopback strips, which can be hidden and brought back. GUI thread.
class FieldLoopbackBase1 : public quillon::PlainField
{
    Q_OBJECT
public:
    /// The strips in the order of the row, once. They stay the caller's, but must not go before the field.
    FieldLoopbackBase1& setWidgetList(const QList<LoopbackBase*>& strips);

protected:
    using PlainField::PlainField;
};
