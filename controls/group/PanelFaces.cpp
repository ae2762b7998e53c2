#include "controls/group/PanelFaces.h"

namespace quillon
{

PushButtonGroup::PushButtonGroup(int number, QWidget* parent) : PanelFace(groupShapes()[std::size_t(number - 1)], parent)
{
    connect(&mCore, &PanelCore::changed, this,
            [this](int index, const QString& state) { emit stateChanged(mCore.nameOf(index), state); });
    connect(&mCore, &PanelCore::clicked, this,
            [this](int index, const QString& which) { emit mouseClickEvent(mCore.nameOf(index), which); });
}

PushButtonPanel::PushButtonPanel(int number, const std::function<void(int, bool)>& tell, QWidget* parent)
    : PanelFace(panelShapes()[std::size_t(number - 1)], parent)
{
    connect(&mCore, &PanelCore::changed, this, [tell](int index, const QString& state) { tell(index, state.toInt() != 0); });
}

} // namespace quillon
