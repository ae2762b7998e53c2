#pragma once

#include <QColor>
#include <QLineEdit>

namespace quillon
{

/// A bare editor that stands in a control's text: no frame, no menu, centred, in the colour of the text it stands for. The control
/// is its parent and watches its events.
QLineEdit* makeValueEditor(QWidget* control, const QColor& color);

} // namespace quillon
