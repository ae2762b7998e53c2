#pragma once

#include "strips/origin/OriginBase.h"

/// A stereo input with gain and mute.
class OriginS1M12 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M12(const QString& objectName, QWidget* parent = nullptr);
};
