#pragma once

#include "strips/input/InputBase.h"

/// A microphone as the ducking panel shows it: its name and its level. It keeps nothing and sends nothing. GUI thread.
class R47_PrivateWidget1_1 final : public InputBase
{
    Q_OBJECT
public:
    explicit R47_PrivateWidget1_1(const QString& objectName, QWidget* parent = nullptr);

    void loadSettings() override {}
    // There is neither solo nor mute here.
    void loadSolo(bool) override {}
    void loadMute(bool) override {}
    void setSolo(bool) override {}
    void setMute(bool) override {}
    bool getSolo() const override { return false; }
    bool getMute() const override { return false; }
};
