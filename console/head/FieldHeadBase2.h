#pragma once

#include "console/head/FieldHead.h"

/// The bar of a page with one fixed workspace: no selector, and nothing to save or download. GUI thread.
class FieldHeadBase2 : public quillon::FieldHead
{
    Q_OBJECT
protected:
    explicit FieldHeadBase2(const QString& objectName, QWidget* parent);
};
