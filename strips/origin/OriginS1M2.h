#pragma once

#include "strips/origin/OriginBase.h"

/// IN 2 of the simple console: phantom power, gain and mute.
class OriginS1M2 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M2(const QString& objectName, QWidget* parent = nullptr);
};
