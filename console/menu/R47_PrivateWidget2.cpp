#include "console/menu/R47_PrivateWidget2.h"

#include "console/menu/MenuGroups.h"

R47_PrivateWidget2::R47_PrivateWidget2(const QString& objectName, QWidget* parent)
    : WorkModeMenu(quillon::sceneAndPresetGroups(), objectName, parent)
{
}
