#pragma once

#include "strips/output/OutputBase.h"

/// An output whose sides can be set apart.
class OutputS1M2 final : public OutputBase
{
    Q_OBJECT
public:
    explicit OutputS1M2(const QString& objectName, QWidget* parent = nullptr);
};
