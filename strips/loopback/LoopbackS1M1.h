#pragma once

#include "strips/loopback/LoopbackBase.h"

/// A loopback with one fader.
class LoopbackS1M1 final : public LoopbackBase
{
    Q_OBJECT
public:
    explicit LoopbackS1M1(const QString& objectName, QWidget* parent = nullptr);
};
