#pragma once

#include "strips/field/FieldLoopbackBase1.h"

/// The loopback field of a page.
class FieldLoopbackS1M1 final : public FieldLoopbackBase1
{
    Q_OBJECT
public:
    explicit FieldLoopbackS1M1(const QString& objectName, QWidget* parent = nullptr)
        : FieldLoopbackBase1({"Loopback", "回录"}, objectName, parent)
    {
    }
};
