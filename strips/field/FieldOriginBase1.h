#pragma once

#include "strips/field/PlainField.h"

namespace quillon
{
class PlainStrip;
}

/// A row of simple strips, of whatever kind. GUI thread.
class FieldOriginBase1 : public quillon::PlainField
{
    Q_OBJECT
public:
    /// The strips in the order of the row, once. They stay the caller's, but must not go before the field.
    FieldOriginBase1& setWidgetList(const QList<quillon::PlainStrip*>& strips);

protected:
    using PlainField::PlainField;
};
