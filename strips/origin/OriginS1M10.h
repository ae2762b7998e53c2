#pragma once

#include "strips/origin/OriginBase.h"

/// IN 1 with an input selector, phantom power, auto gain, equalizer and ducking.
class OriginS1M10 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M10(const QString& objectName, QWidget* parent = nullptr);
};
