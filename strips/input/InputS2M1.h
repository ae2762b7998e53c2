#pragma once

#include "strips/origin/OriginBase.h"

/// A microphone input that lies: input selector, phantom power, gain and mute.
class InputS2M1 final : public OriginBase
{
    Q_OBJECT
public:
    explicit InputS2M1(const QString& objectName, QWidget* parent = nullptr);
};
