#pragma once

#include "strips/field/FieldOriginBase1.h"

/// Simple strips that lie, one below the other; no title. GUI thread.
class FieldOriginBase2 : public FieldOriginBase1
{
    Q_OBJECT
protected:
    FieldOriginBase2(const QString& objectName, QWidget* parent) : FieldOriginBase1({"", ""}, objectName, parent, Qt::Vertical) {}
};
