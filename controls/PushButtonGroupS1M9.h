#pragma once

#include "controls/group/GroupCore.h"

/// Which microphone feeds the strip: exactly one of three.
class PushButtonGroupS1M9 : public QWidget
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M9(QWidget* parent = nullptr);

    /// Selects a button; state is not used. An unknown name does nothing. Tells listeners if asked to and if it is another one.
    void setState(const QString& button, const QString& state, bool emitSignal) { mCore.setState(button, state, emitSignal); }
    /// The name of the selected button, whatever the argument; empty before the first selection.
    QString getState(const QString& button = {}) const { return mCore.getState(button); }
    void setStateMic1(bool on) { mCore.setState(QStringLiteral("Mic1"), on); }
    void setStateMic35(bool on) { mCore.setState(QStringLiteral("Mic35"), on); }
    void setStateMicHP(bool on) { mCore.setState(QStringLiteral("MicHP"), on); }
    /// "English" or "Chinese"; anything else changes nothing.
    void setLanguage(const QString& language) { mCore.setLanguage(language); }
    void setFont(const QFont& font) { mCore.setFont(font); }
    /// The strip's name: each button is announced as this name and its caption.
    void setAccessibleName(const QString& prefix) { mCore.setAccessibleName(prefix); }

signals:
    void stateChanged(QString button, QString state);

protected:
    void resizeEvent(QResizeEvent*) override { mCore.layout(); }

private:
    quillon::GroupCore mCore;
};
