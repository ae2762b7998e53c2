#include "strips/Solo.h"

struct Solo::Side {
    void (Solo::*loadSolo)(bool);
    void (Solo::*loadMute)(bool);
    void (Solo::*setSolo)(bool);
    void (Solo::*setMute)(bool);
    bool (Solo::*getSolo)() const;
    bool (Solo::*getMute)() const;
    bool Solo::*saved;
};

constexpr Solo::Side Solo::kMain{&Solo::loadSolo, &Solo::loadMute, &Solo::setSolo,   &Solo::setMute,
                                 &Solo::getSolo,  &Solo::getMute,  &Solo::mMuteSaved};
constexpr Solo::Side Solo::kLeft{&Solo::loadSoloLeft, &Solo::loadMuteLeft, &Solo::setSoloLeft,   &Solo::setMuteLeft,
                                 &Solo::getSoloLeft,  &Solo::getMuteLeft,  &Solo::mMuteSavedLeft};
constexpr Solo::Side Solo::kRight{&Solo::loadSoloRight, &Solo::loadMuteRight, &Solo::setSoloRight,   &Solo::setMuteRight,
                                  &Solo::getSoloRight,  &Solo::getMuteRight,  &Solo::mMuteSavedRight};

bool Solo::doSolo()
{
    return solo(kMain);
}

bool Solo::doSoloLeft()
{
    return solo(kLeft);
}

bool Solo::doSoloRight()
{
    return solo(kRight);
}

bool Solo::doMute()
{
    return mute(kMain);
}

bool Solo::doMuteLeft()
{
    return mute(kLeft);
}

bool Solo::doMuteRight()
{
    return mute(kRight);
}

void Solo::soloCountChanged()
{
    follow(kMain);
    follow(kLeft);
    follow(kRight);
}

bool Solo::solo(const Side& side)
{
    emit soloStateChanged(objectName(), (this->*side.getSolo)());
    follow(side);
    return true;
}

bool Solo::mute(const Side& side)
{
    const bool muted = (this->*side.getMute)();
    if (isSoloing()) {
        if (muted != (this->*side.getSolo)()) {
            return false;
        }
        this->*side.saved = muted;
        (this->*side.setSolo)(!muted);
        return true;
    }
    this->*side.saved = muted;
    return true;
}

void Solo::follow(const Side& side)
{
    const bool wanted = isSoloing() ? !(this->*side.getSolo)() : this->*side.saved;
    if ((this->*side.getMute)() != wanted) {
        (this->*side.setMute)(wanted);
    }
}

void Solo::initSoloState(bool linked, bool solo, bool soloLeft, bool soloRight, bool mute, bool muteLeft, bool muteRight)
{
    mLinked = linked;
    const auto take = [this](const Side& side, bool soloed, bool muted) {
        this->*side.saved = muted;
        (this->*side.loadSolo)(soloed);
        (this->*side.loadMute)(isSoloing() ? !soloed : muted);
    };
    take(kMain, solo, mute);
    take(kLeft, soloLeft, muteLeft);
    take(kRight, soloRight, muteRight);
}

void Solo::setLinked(bool linked)
{
    mLinked = linked;
    if (linked) {
        if (getSolo()) {
            setSolo(true);
        }
        if (getSoloLeft()) {
            emit soloStateChanged(objectName(), false);
        }
        if (getSoloRight()) {
            emit soloStateChanged(objectName(), false);
        }
        return;
    }
    if (getSoloLeft()) {
        setSoloLeft(true);
    }
    if (getSoloRight()) {
        setSoloRight(true);
    }
    if (getSolo()) {
        emit soloStateChanged(objectName(), false);
    }
}
