#pragma once

#include "strips/field/FieldEffectBase1.h"

/// The effect field of a page.
class FieldEffectS1M1 final : public FieldEffectBase1
{
    Q_OBJECT
public:
    explicit FieldEffectS1M1(const QString& objectName, QWidget* parent = nullptr)
        : FieldEffectBase1({"Effect", "效果"}, objectName, parent)
    {
    }
};
