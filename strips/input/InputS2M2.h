#pragma once

#include "strips/origin/OriginBase.h"

/// A stereo source that lies: level of both sides, gain and mute.
class InputS2M2 final : public OriginBase
{
    Q_OBJECT
public:
    explicit InputS2M2(const QString& objectName, QWidget* parent = nullptr);
};
