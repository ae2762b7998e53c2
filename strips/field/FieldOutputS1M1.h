#pragma once

#include "strips/field/FieldOutputBase1.h"

/// The output field of a page.
class FieldOutputS1M1 final : public FieldOutputBase1
{
    Q_OBJECT
public:
    explicit FieldOutputS1M1(const QString& objectName, QWidget* parent = nullptr)
        : FieldOutputBase1({"Output", "输出"}, objectName, parent)
    {
    }
};
