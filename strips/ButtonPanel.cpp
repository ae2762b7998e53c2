#include "strips/ButtonPanel.h"

namespace quillon
{

ButtonPanel::ButtonPanel(const PanelShape& shape, QWidget* parent) : PanelFace(shape, parent)
{
    setMinimumSize(shape.width, shape.height);
    connect(&mCore, &PanelCore::changed, this,
            [this](int index, const QString& state) { emit stateChanged(mCore.nameOf(index), state); });
}

} // namespace quillon
