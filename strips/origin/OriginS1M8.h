#pragma once

#include "strips/origin/OriginBase.h"

/// A playback pair of the simple console: the four gains of its matrix in each mix.
class OriginS1M8 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M8(const QString& objectName, QWidget* parent = nullptr);
};
