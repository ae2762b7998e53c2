#pragma once

#include "strips/field/PlainField.h"

class EffectBase;

/// A row of effect panels, which can be hidden and brought back. GUI thread.
class FieldEffectBase1 : public quillon::PlainField
{
    Q_OBJECT
public:
    /// The strips in the order of the row, once. They stay the caller's, but must not go before the field.
    FieldEffectBase1& setWidgetList(const QList<EffectBase*>& strips);

protected:
    using PlainField::PlainField;
};
