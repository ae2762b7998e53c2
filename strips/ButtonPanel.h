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

signals:
    void stateChanged(QString button, QString state);
};

} // namespace quillon
