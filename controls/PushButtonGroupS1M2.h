#pragma once

#include "controls/group/GroupCore.h"

/// SOLO and MUTE of a strip, side by side and independent of each other.
class PushButtonGroupS1M2 : public QWidget
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M2(QWidget* parent = nullptr);

    /// state is "0" or "1" as text; any number but 0 is on. An unknown button does nothing. Tells listeners only if asked to.
    void setState(const QString& button, const QString& state, bool emitSignal) { mCore.setState(button, state, emitSignal); }
    /// "0" or "1"; "0" for an unknown button.
    QString getState(const QString& button) const { return mCore.getState(button); }
    void setStateSOLO(bool on) { mCore.setState(QStringLiteral("SOLO"), on); }
    void setStateMUTE(bool on) { mCore.setState(QStringLiteral("MUTE"), on); }
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
