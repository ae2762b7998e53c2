#pragma once
// The panels of push buttons. What stands on each is its row of quillon::panelShapes(), whose order is that of ButtonID; a member
// adds the enum, its signal and its setters, which switch a button and tell listeners.

#include "controls/group/PanelFaces.h"
#include "controls/group/PlateButton.h"

class QGraphicsDropShadowEffect;

class PushButtonS1M1 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { Mic1, Mic35, MicHP, _48V, AUTO, Ducking };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M1(QWidget* parent = nullptr) : PushButtonPanel(1, this, parent) {}

public slots:
    void setStateMic1(bool on) { setState(Mic1, on); }
    void setStateMic35(bool on) { setState(Mic35, on); }
    void setStateMicHP(bool on) { setState(MicHP, on); }
    void setState48V(bool on) { setState(_48V, on); }
    void setStateAUTO(bool on) { setState(AUTO, on); }
    void setStateDucking(bool on) { setState(Ducking, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M2 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { SOLO, MUTE };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M2(QWidget* parent = nullptr) : PushButtonPanel(2, this, parent) {}

public slots:
    void setStateSOLO(bool on) { setState(SOLO, on); }
    void setStateMUTE(bool on) { setState(MUTE, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M3 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { _48V, AUTO, Ducking };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M3(QWidget* parent = nullptr) : PushButtonPanel(3, this, parent) {}

public slots:
    void setState48V(bool on) { setState(_48V, on); }
    void setStateAUTO(bool on) { setState(AUTO, on); }
    void setStateDucking(bool on) { setState(Ducking, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M4 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { IN1, IN2, IN12, OFF, NC1, NC2, NC3 };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M4(QWidget* parent = nullptr) : PushButtonPanel(4, this, parent) {}

public slots:
    void setStateIN1(bool on) { setState(IN1, on); }
    void setStateIN2(bool on) { setState(IN2, on); }
    void setStateIN12(bool on) { setState(IN12, on); }
    void setStateOFF(bool on) { setState(OFF, on); }
    void setStateNC1(bool on) { setState(NC1, on); }
    void setStateNC2(bool on) { setState(NC2, on); }
    void setStateNC3(bool on) { setState(NC3, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M5 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { NC, IN1, IN2, IN12, OFF, STU, LIVE, HALL };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M5(QWidget* parent = nullptr) : PushButtonPanel(5, this, parent) {}

public slots:
    void setStateNC(bool on) { setState(NC, on); }
    void setStateIN1(bool on) { setState(IN1, on); }
    void setStateIN2(bool on) { setState(IN2, on); }
    void setStateIN12(bool on) { setState(IN12, on); }
    void setStateOFF(bool on) { setState(OFF, on); }
    void setStateSTU(bool on) { setState(STU, on); }
    void setStateLIVE(bool on) { setState(LIVE, on); }
    void setStateHALL(bool on) { setState(HALL, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M6 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { SOLOLeft, SOLORight, MUTELeft, MUTERight };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M6(QWidget* parent = nullptr) : PushButtonPanel(6, this, parent) {}

public slots:
    void setStateSOLOLeft(bool on) { setState(SOLOLeft, on); }
    void setStateSOLORight(bool on) { setState(SOLORight, on); }
    void setStateMUTELeft(bool on) { setState(MUTELeft, on); }
    void setStateMUTERight(bool on) { setState(MUTERight, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M7 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { MUTE };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M7(QWidget* parent = nullptr) : PushButtonPanel(7, this, parent) {}

public slots:
    void setStateMUTE(bool on) { setState(MUTE, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M8 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { Mic1, Mic35, MicHP, _48V, MUTE };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M8(QWidget* parent = nullptr) : PushButtonPanel(8, this, parent) {}

public slots:
    void setStateMic1(bool on) { setState(Mic1, on); }
    void setStateMic35(bool on) { setState(Mic35, on); }
    void setStateMicHP(bool on) { setState(MicHP, on); }
    void setState48V(bool on) { setState(_48V, on); }
    void setStateMUTE(bool on) { setState(MUTE, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M9 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { _48V, MUTE };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M9(QWidget* parent = nullptr) : PushButtonPanel(9, this, parent) {}

public slots:
    void setState48V(bool on) { setState(_48V, on); }
    void setStateMUTE(bool on) { setState(MUTE, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M10 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { Mic1, Mic35, MicHP, _48V, AUTO };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M10(QWidget* parent = nullptr) : PushButtonPanel(10, this, parent) {}

public slots:
    void setStateMic1(bool on) { setState(Mic1, on); }
    void setStateMic35(bool on) { setState(Mic35, on); }
    void setStateMicHP(bool on) { setState(MicHP, on); }
    void setState48V(bool on) { setState(_48V, on); }
    void setStateAUTO(bool on) { setState(AUTO, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M11 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { SOLO, MUTE, ANTI };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M11(QWidget* parent = nullptr) : PushButtonPanel(11, this, parent) {}

public slots:
    void setStateSOLO(bool on) { setState(SOLO, on); }
    void setStateMUTE(bool on) { setState(MUTE, on); }
    void setStateANTI(bool on) { setState(ANTI, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M12 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { _48V, AUTO };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M12(QWidget* parent = nullptr) : PushButtonPanel(12, this, parent) {}

public slots:
    void setState48V(bool on) { setState(_48V, on); }
    void setStateAUTO(bool on) { setState(AUTO, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M13 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { SOLOLeft, SOLORight, MUTELeft, MUTERight, ANTILeft, ANTIRight };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M13(QWidget* parent = nullptr) : PushButtonPanel(13, this, parent) {}

public slots:
    void setStateSOLOLeft(bool on) { setState(SOLOLeft, on); }
    void setStateSOLORight(bool on) { setState(SOLORight, on); }
    void setStateMUTELeft(bool on) { setState(MUTELeft, on); }
    void setStateMUTERight(bool on) { setState(MUTERight, on); }
    void setStateANTILeft(bool on) { setState(ANTILeft, on); }
    void setStateANTIRight(bool on) { setState(ANTIRight, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

class PushButtonS1M14 : public quillon::PushButtonPanel
{
    Q_OBJECT
public:
    enum ButtonID { MUTELeft, MUTERight };
    Q_ENUM(ButtonID)
    explicit PushButtonS1M14(QWidget* parent = nullptr) : PushButtonPanel(14, this, parent) {}

public slots:
    void setStateMUTELeft(bool on) { setState(MUTELeft, on); }
    void setStateMUTERight(bool on) { setState(MUTERight, on); }

signals:
    void buttonStateChanged(ButtonID button, bool state);
};

/// A button that can glow: a shadow in the accent colour without an offset, off at first.
class PushButtonS1M15 : public quillon::PlateButton
{
    Q_OBJECT
public:
    explicit PushButtonS1M15(QWidget* parent = nullptr);

    void setShadowEnabled(bool on);
    bool isShadowEnabled() const;

private:
    QGraphicsDropShadowEffect* mShadow;
};
