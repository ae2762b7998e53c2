#pragma once

#include "console/menu/WorkModeMenu.h"

/// The menu of the Pro mode: presets.
class R47_PrivateWidget5 final : public quillon::WorkModeMenu
{
    Q_OBJECT
public:
    explicit R47_PrivateWidget5(const QString& objectName, QWidget* parent = nullptr);
};
