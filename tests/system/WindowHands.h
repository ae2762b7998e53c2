#pragma once
// The console on its Pro page, with hands on the controls of its windows.

#include "PageHands.h"
#include "PageOnWire.h"

#include <QComboBox>

namespace wire
{

/// The part of a dial or fader that takes the keys and tells the value; of other controls the control itself.
inline QWidget* handleOf(QWidget* control)
{
    for (auto* part : control->findChildren<QWidget*>()) {
        if (valueOf(part)) {
            return part;
        }
    }
    return control;
}

/// A switch's 0 or 1, a choice's text, a value's number.
inline QString stateOf(QWidget* control)
{
    if (const auto* button = qobject_cast<QAbstractButton*>(control)) {
        return QString::number(int(button->isChecked()));
    }
    if (const auto* combo = qobject_cast<QComboBox*>(control)) {
        return combo->currentText();
    }
    return QString::number(valueOf(handleOf(control))->accessibleValue());
}

/// What it told at the start is in `start`.
struct ProConsole {
    ProConsole() : console({"--rate", "0", "--mode", "3"}), start(console.sent()) {}

    MainWindow_R47& window() { return console.window(); }
    QWidget* page() { return window().findChild<QStackedWidget*>()->currentWidget(); }

    Console console;
    QStringList start;
};

} // namespace wire
