#pragma once
// The groups of push buttons. What stands on each is its row of quillon::groupShapes(); a member adds its setters, which switch
// a button and tell listeners.

#include "controls/group/PanelFaces.h"

/// Phantom power, auto gain and ducking, one under the other.
class PushButtonGroupS1M1 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M1(QWidget* parent = nullptr) : PushButtonGroup(1, parent) {}

public slots:
    void setState48V(bool on) { set("48V", on); }
    void setStateAUTO(bool on) { set("AUTO", on); }
    void setStateDUCKING(bool on) { set("DUCKING", on); }
};

/// SOLO and MUTE of a strip, side by side.
class PushButtonGroupS1M2 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M2(QWidget* parent = nullptr) : PushButtonGroup(2, parent) {}

public slots:
    void setStateSOLO(bool on) { set("SOLO", on); }
    void setStateMUTE(bool on) { set("MUTE", on); }
};

/// Polarity over SOLO and MUTE.
class PushButtonGroupS1M3 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M3(QWidget* parent = nullptr) : PushButtonGroup(3, parent) {}

public slots:
    void setStateANTI(bool on) { set("ANTI", on); }
    void setStateSOLO(bool on) { set("SOLO", on); }
    void setStateMUTE(bool on) { set("MUTE", on); }
};

/// MUTE of an output or loopback.
class PushButtonGroupS1M4 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M4(QWidget* parent = nullptr) : PushButtonGroup(4, parent) {}

public slots:
    void setStateMUTE(bool on) { set("MUTE", on); }
};

/// Phantom power and auto gain.
class PushButtonGroupS1M5 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M5(QWidget* parent = nullptr) : PushButtonGroup(5, parent) {}

public slots:
    void setState48V(bool on) { set("48V", on); }
    void setStateAUTO(bool on) { set("AUTO", on); }
};

/// Which microphone feeds the strip, with a picture of each connector.
class PushButtonGroupS1M6 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M6(QWidget* parent = nullptr) : PushButtonGroup(6, parent) {}

public slots:
    void setStateMic1(bool on) { set("Mic1", on); }
    void setStateMic35(bool on) { set("Mic35", on); }
    void setStateMicHP(bool on) { set("MicHP", on); }
};

/// Polarity, SOLO and MUTE of one channel of a pair.
class PushButtonGroupS1M7 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M7(QWidget* parent = nullptr) : PushButtonGroup(7, parent) {}

public slots:
    void setStateANTI(bool on) { set("ANTI", on); }
    void setStateSOLO(bool on) { set("SOLO", on); }
    void setStateMUTE(bool on) { set("MUTE", on); }
};

/// MUTE of one channel of a pair.
class PushButtonGroupS1M8 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M8(QWidget* parent = nullptr) : PushButtonGroup(8, parent) {}

public slots:
    void setStateMUTE(bool on) { set("MUTE", on); }
};

/// Which microphone feeds the strip.
class PushButtonGroupS1M9 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M9(QWidget* parent = nullptr) : PushButtonGroup(9, parent) {}

public slots:
    void setStateMic1(bool on) { set("Mic1", on); }
    void setStateMic35(bool on) { set("Mic35", on); }
    void setStateMicHP(bool on) { set("MicHP", on); }
};

/// The equalizer of an output.
class PushButtonGroupS1M10 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M10(QWidget* parent = nullptr) : PushButtonGroup(10, parent) {}

public slots:
    void setStateEQ(bool on) { set("EQ", on); }
};

/// Phantom power, auto gain, equalizer and ducking of a microphone strip.
class PushButtonGroupS1M11 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M11(QWidget* parent = nullptr) : PushButtonGroup(11, parent) {}

public slots:
    void setState48V(bool on) { set("48V", on); }
    void setStateAUTO(bool on) { set("AUTO", on); }
    void setStateEQ(bool on) { set("EQ", on); }
    void setStateDUCKING(bool on) { set("DUCKING", on); }
};

/// The same without ducking.
class PushButtonGroupS1M12 : public quillon::PushButtonGroup
{
    Q_OBJECT
public:
    explicit PushButtonGroupS1M12(QWidget* parent = nullptr) : PushButtonGroup(12, parent) {}

public slots:
    void setState48V(bool on) { set("48V", on); }
    void setStateAUTO(bool on) { set("AUTO", on); }
    void setStateEQ(bool on) { set("EQ", on); }
};
