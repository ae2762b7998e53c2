#pragma once

#include "controls/group/GroupCore.h"

/// Phantom power, auto gain, equalizer and ducking of a microphone strip, one under the other.
///
/// EQ and DUCKING tell single and double clicks apart: a left click takes effect 200 ms late, and a right or double click
/// toggles nothing. Space toggles them at once; Return and the menu key stand for the right click.
class PushButtonGroupS1M11 : public QWidget
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M11(QWidget* parent = nullptr);

    /// state is "0" or "1" as text; any number but 0 is on. An unknown button does nothing. Tells listeners only if asked to.
    void setState(const QString& button, const QString& state, bool emitSignal) { mCore.setState(button, state, emitSignal); }
    /// "0" or "1"; "0" for an unknown button.
    QString getState(const QString& button) const { return mCore.getState(button); }
    void setState48V(bool on) { mCore.setState(QStringLiteral("48V"), on); }
    void setStateAUTO(bool on) { mCore.setState(QStringLiteral("AUTO"), on); }
    void setStateEQ(bool on) { mCore.setState(QStringLiteral("EQ"), on); }
    void setStateDUCKING(bool on) { mCore.setState(QStringLiteral("DUCKING"), on); }
    /// "English" or "Chinese"; anything else changes nothing.
    void setLanguage(const QString& language) { mCore.setLanguage(language); }
    void setFont(const QFont& font) { mCore.setFont(font); }
    /// The strip's name: each button is announced as this name and its caption.
    void setAccessibleName(const QString& prefix) { mCore.setAccessibleName(prefix); }

signals:
    void stateChanged(QString button, QString state);
    void mouseClickEvent(QString button, QString event);

protected:
    void resizeEvent(QResizeEvent*) override { mCore.layout(); }

private:
    quillon::GroupCore mCore;
};
