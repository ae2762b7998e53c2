#pragma once

#include "console/menu/WorkModeMenu.h"

/// The menu of the Mobile and the Live mode: scenes and presets.
class R47_PrivateWidget2 final : public quillon::WorkModeMenu
{
    Q_OBJECT
public:
    explicit R47_PrivateWidget2(const QString& objectName, QWidget* parent = nullptr);
};
