#pragma once

#include "controls/group/PanelFaces.h"

namespace quillon
{

/// A panel of buttons out of a strip's own table. Its object names begin with "PushButton". GUI thread.
class ButtonPanel : public PanelFace
{
    Q_OBJECT
public:
    /// The shape must outlive the panel.
    ButtonPanel(const PanelShape& shape, QWidget* parent);
    /// Object names in the order of the shape, where "PushButton" and the button's name will not do.
    void setObjectNames(std::span<const char* const> names);

signals:
    void stateChanged(QString button, QString state);
};

} // namespace quillon
