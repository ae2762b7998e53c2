#include "controls/MessageBoxS3M1.h"

#include "controls/MessageBoxWidget.h"

MessageBoxS3M1::MessageBoxS3M1(QWidget* body, QWidget* parent) : FramelessWindow(parent)
{
    setModal(true);
    body->setParent(this);
    setBody(body);
    if (const auto* answers = qobject_cast<MessageBoxWidget*>(body))
        connect(answers, &MessageBoxWidget::answered, this, &QDialog::done);
}

void MessageBoxS3M1::placeOver(const QWidget* window, double width, double height)
{
    const QSize size = QSizeF(window->height() * width, window->height() * height).toSize().expandedTo(minimumSize());
    resize(size);
    move(window->mapToGlobal(window->rect().center()) - QPoint(size.width() / 2, size.height() / 2));
}

void MessageBoxS3M1::showEvent(QShowEvent* event)
{
    setAccessibleName(body()->accessibleName());
    FramelessWindow::showEvent(event);
}
