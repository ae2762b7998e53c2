#pragma once

#include "strips/origin/OriginBase.h"

/// IN 1 of the simple console: input selector, phantom power, gain and mute.
class OriginS1M1 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M1(const QString& objectName, QWidget* parent = nullptr);
};
