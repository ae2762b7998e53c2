#pragma once

#include "strips/origin/OriginBase.h"

/// A loopback of the simple console: gain and mute. The device knows no mute of it: a muted loopback sends the lowest gain.
class OriginS1M7 final : public OriginBase
{
    Q_OBJECT
public:
    explicit OriginS1M7(const QString& objectName, QWidget* parent = nullptr);
};
