#pragma once

#include "strips/field/FieldOriginBase3.h"

/// A field of simple strips with a title out of the workspace.
class FieldOriginS1M2 final : public FieldOriginBase3
{
    Q_OBJECT
public:
    FieldOriginS1M2(const QString& objectName, const quillon::StripText& title, QWidget* parent = nullptr)
        : FieldOriginBase3(title, objectName, parent)
    {
    }
};
