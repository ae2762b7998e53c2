#pragma once
// The controls of the page that the console shows, and of the ducking window while it is open.

#include "RandomHands.h"

#include <QAction>
#include <QMenu>
#include <QSlider>
#include <QSplitterHandle>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

/// Whoever looks for it finds it by this: "Input_IN1/widgetPushButtonGroup1/PushButton48V", from the strip or field down.
inline QString pathOf(const QWidget* widget)
{
    static const QRegularExpression owner("^(Input_|Mixer_|Loopback_|Output_|Effect|Field|ConfigMenu)\\w*$|^Ducking$");
    QStringList names;
    for (; widget; widget = widget->parentWidget()) {
        const bool named = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
        if (named || names.isEmpty()) {
            names.prepend(named ? widget->objectName() : QString::fromLatin1(widget->metaObject()->className()));
        }
        if (widget->objectName().contains(owner)) {
            break;
        }
    }
    return names.join(u'/');
}

inline bool isInteractive(const QWidget* widget)
{
    return widget->focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(widget) ||
           qobject_cast<const QSplitterHandle*>(widget);
}

inline void typeInto(QLineEdit* editor, const QString& text)
{
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
}

inline quillon::ValueControl* valueOf(QWidget* widget)
{
    auto* host = dynamic_cast<quillon::ValueControlHost*>(widget);
    return host ? &host->valueControl() : nullptr;
}

/// All of them, also those that are hidden now. Menus, lists and questions come and go and are none.
inline QList<QWidget*> controlsOf(MainWindow_R47& window)
{
    auto* ducking = window.findChild<QWidget*>("Ducking");
    QList<QWidget*> all = window.findChild<QStackedWidget*>()->currentWidget()->findChildren<QWidget*>();
    if (ducking->isVisible()) {
        all += ducking->findChildren<QWidget*>();
    }
    all.removeIf(
        [&](QWidget* widget) { return !isInteractive(widget) || (widget->window() != &window && widget->window() != ducking); });
    return all;
}
