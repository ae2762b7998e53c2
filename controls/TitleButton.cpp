#include "controls/TitleButton.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillon
{

QPushButton* newTitleButton(QWidget* bar, const QString& icon)
{
    auto* button = new QPushButton(bar);
    button->setMinimumSize(1, 1);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    // Neither the Return key of the body nor a mere click may end up on a button of the frame.
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus);
    button->setStyleSheet(u"QPushButton { border: none; background: transparent; image: url(%1); }"
                          "QPushButton:hover { background: rgb(53, 53, 53); border-radius: 4px; }"
                          "QPushButton:pressed { background: rgb(22, 22, 22); border-radius: 4px; }"
                          "QPushButton:focus { border: 1px solid rgb(67, 207, 124); border-radius: 4px; }"_s.arg(icon));
    return button;
}
} // namespace quillon
