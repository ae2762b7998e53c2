#pragma once

#include "strips/origin/OriginBase.h"

/// An output of the simple console: gain and mute.
class OriginS1M6 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M6(const QString& objectName, QWidget* parent = nullptr);
};
