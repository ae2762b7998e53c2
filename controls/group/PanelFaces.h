#pragma once

#include "controls/group/PanelCore.h"

#include <QWidget>

#include <functional>

namespace quillon
{

/// What every panel of push buttons offers, whichever family it is of. GUI thread.
class PanelFace : public QWidget
{
    Q_OBJECT
public:
    /// state is "0" or "1" as text; any number but 0 is on. An unknown button does nothing. Tells listeners only if asked to.
    /// A selector takes the button, whatever the state, and tells only if it is another one.
    void setState(const QString& button, const QString& state, bool emitSignal) { mCore.setState(button, state, emitSignal); }
    /// "0" or "1", "0" for an unknown button. A selector answers the name of the selected button to any argument.
    QString getState(const QString& button = {}) const { return mCore.getState(button); }
    /// "English" or "Chinese"; anything else changes nothing.
    void setLanguage(const QString& language) { mCore.setLanguage(language); }
    void setFont(const QFont& font) { mCore.setFont(font); }
    /// The strip's name: each button is announced as this name and its caption.
    void setAccessibleName(const QString& prefix) { mCore.setAccessibleName(prefix); }

protected:
    PanelFace(const PanelShape& shape, QWidget* parent) : QWidget(parent), mCore(this, shape) {}
    void resizeEvent(QResizeEvent*) override { mCore.layout(); }

    PanelCore mCore;
};

/// The groups, which speak in names and texts.
class PushButtonGroup : public PanelFace
{
    Q_OBJECT
signals:
    void stateChanged(QString button, QString state);
    /// Of the buttons that tell single and double clicks apart: event is "Left", "Right" or "Middle" with "ButtonSingle" or
    /// "ButtonDouble" behind it. A left click of theirs takes effect 200 ms late, a right or double click toggles nothing.
    /// Space toggles them at once; Return and the menu key stand for the right click.
    void mouseClickEvent(QString button, QString event);

protected:
    /// number is the member's, from 1.
    PushButtonGroup(int number, QWidget* parent);
    /// As the user would: tells listeners.
    void set(const char* button, bool on)
    {
        setState(QLatin1StringView(button), on ? QStringLiteral("1") : QStringLiteral("0"), true);
    }
};

/// The panels of buttons, whose members each add an enum ButtonID in the order of their row and a signal buttonStateChanged.
class PushButtonPanel : public PanelFace
{
    Q_OBJECT
public:
    using PanelFace::setState;
    /// button is the member's ButtonID. Switches and tells, whether or not it was in that state before. One of an exclusive set
    /// goes off only when another one is lit.
    void setState(int button, bool on) { mCore.setOn(button, on, true); }
    /// The same without telling: what a strip does with stored values.
    void loadState(int button, bool on) { mCore.setOn(button, on, false); }
    bool isOn(int button) const { return mCore.isOn(button); }

protected:
    /// number is the member's, from 1; member is this, whose signal the panel emits with the button as the member's own enum.
    template<class Member>
    PushButtonPanel(int number, Member* member, QWidget* parent)
        : PushButtonPanel(
              number,
              [member](int button, bool on) {
                  emit member->buttonStateChanged(static_cast<typename Member::ButtonID>(button), on);
              },
              parent)
    {
    }

private:
    PushButtonPanel(int number, const std::function<void(int button, bool on)>& tell, QWidget* parent);
};

} // namespace quillon
