#pragma once

#include "strips/origin/OriginBase.h"

/// A stereo input of the simple console: gain and mute.
class OriginS1M9 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M9(const QString& objectName, QWidget* parent = nullptr);
};
