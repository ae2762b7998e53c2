#pragma once

#include "strips/field/FieldOriginBase1.h"

/// A row of simple strips whose title a workspace may give under "FieldTitle"; without one it has the page's. GUI thread.
class FieldOriginBase3 : public FieldOriginBase1
{
    Q_OBJECT
protected:
    using FieldOriginBase1::FieldOriginBase1;

    QString title() override
    {
        const QString own = loadValue(QStringLiteral("FieldTitle")).toString();
        return own.isEmpty() ? FieldOriginBase1::title() : own;
    }
};
