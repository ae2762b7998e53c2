#pragma once

#include "strips/output/OutputBase.h"

/// HP OUT and OTG OUT: one fader.
class OutputS1M1 final : public OutputBase
{
    Q_OBJECT
public:
    explicit OutputS1M1(const QString& objectName, QWidget* parent = nullptr);
};
