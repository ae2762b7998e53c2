#pragma once

#include "strips/loopback/LoopbackBase.h"

/// A loopback whose sides can be set apart.
class LoopbackS1M2 final : public LoopbackBase
{
    Q_OBJECT
public:
    explicit LoopbackS1M2(const QString& objectName, QWidget* parent = nullptr);
};
