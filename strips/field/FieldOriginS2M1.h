#pragma once

#include "strips/field/FieldOriginBase2.h"

/// A column of simple strips that lie.
class FieldOriginS2M1 final : public FieldOriginBase2
{
    Q_OBJECT
public:
    explicit FieldOriginS2M1(const QString& objectName, QWidget* parent = nullptr) : FieldOriginBase2(objectName, parent) {}
};
