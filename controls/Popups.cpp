#include "controls/Popups.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace quillon
{

namespace
{

/// Also across windows, which a popup is.
bool belongsTo(const QWidget* widget, const QWidget& window)
{
    while (widget && widget != &window)
        widget = widget->parentWidget();
    return widget;
}

} // namespace

void closePopups(const QWidget& window)
{
    QPointer<QWidget> popup = QApplication::activePopupWidget();
    while (popup && belongsTo(popup, window)) {
        popup->close();
        if (popup == QApplication::activePopupWidget())
            return; // one that does not want to
        popup = QApplication::activePopupWidget();
    }
}

} // namespace quillon
