#pragma once

#include "strips/origin/OriginBase.h"

/// IN 2 with phantom power, auto gain, equalizer and ducking.
class OriginS1M11 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M11(const QString& objectName, QWidget* parent = nullptr);
};
