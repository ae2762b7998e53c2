#pragma once

#include "strips/field/FieldOriginBase1.h"

/// A field of simple strips with the title that its page gives it.
class FieldOriginS1M1 final : public FieldOriginBase1
{
    Q_OBJECT
public:
    FieldOriginS1M1(const QString& objectName, const quillon::StripText& title, QWidget* parent = nullptr)
        : FieldOriginBase1(title, objectName, parent)
    {
    }
};
