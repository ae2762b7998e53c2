#include "controls/ValueEditor.h"

using namespace Qt::StringLiterals;

namespace quillon
{

QLineEdit* makeValueEditor(QWidget* control, const QColor& color)
{
    auto* editor = new QLineEdit(control);
    editor->setFrame(false);
    editor->setTextMargins(0, 0, 0, 0);
    editor->setContextMenuPolicy(Qt::NoContextMenu);
    editor->setAlignment(Qt::AlignCenter);
    editor->setStyleSheet(u"QLineEdit {   color: rgb(%1, %2, %3);   background-color: transparent;   border: none;   padding: 0px;"
                          "   selection-color: #161616;   selection-background-color: rgb(%1, %2, %3);}"
                          "QLineEdit:disabled {   color: rgba(%1, %2, %3, 40%);}"_s.arg(color.red())
                              .arg(color.green())
                              .arg(color.blue()));
    editor->installEventFilter(control);
    return editor;
}

} // namespace quillon
