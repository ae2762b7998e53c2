#pragma once

#include <QString>

class QPushButton;
class QWidget;

namespace quillon
{
/// A button of a title bar that shows icon, an SVG of the resources. Tab reaches it; a click does not take the focus to it.
QPushButton* newTitleButton(QWidget* bar, const QString& icon);
} // namespace quillon
