#include "console/menu/R47_PrivateWidget5.h"

#include "console/menu/MenuGroups.h"

R47_PrivateWidget5::R47_PrivateWidget5(const QString& objectName, QWidget* parent)
    : WorkModeMenu(quillon::presetGroups(), objectName, parent)
{
}
