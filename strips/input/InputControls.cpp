// The controls of an input strip: what happens when they are moved, by the user and by the device.

#include "strips/PanelRows.h"
#include "strips/input/InputBase.h"

using namespace Qt::StringLiterals;

void InputBase::in_widgetDial_valueChanged(float value)
{
    mEngine.changed(mGainRow, value);
    if (mUnmuteOnGain && getMute()) {
        setMute(false);
    }
}

void InputBase::in_widgetHSlider_valueChanged(float value)
{
    mEngine.changed(mBalanceRow);
    emitAttribute(u"Balance"_s, toText(quillon::ValueForm::Decimal, value));
}

void InputBase::groupChanged(const QString& button, const QString& state)
{
    if (button == "SOLO"_L1) {
        mEngine.changed(mSoloRow);
    } else if (button == "MUTE"_L1) {
        mEngine.changed(mMuteRow);
    } else if (button == "48V"_L1) {
        mEngine.changed(m48VRow);
    } else if (button == "ANTI"_L1) {
        mEngine.changed(mAntiRow);
    } else if (button == "EQ"_L1 || button == "DUCKING"_L1) {
        showWindow(button, state);
    } else if (button == "AUTO"_L1) {
        if (state == "1"_L1) {
            runAutoGain();
        }
    } else if (mMicRow >= 0) {
        mEngine.changed(mMicRow);
    }
}

void InputBase::showWindow(const QString& attribute, const QString& state)
{
    if (const QString value = quillon::windowEvent(state); !value.isEmpty()) {
        emitAttribute(attribute, value);
    }
}

void InputBase::runAutoGain()
{
    if (mAutoGain->run(mBody.head())) {
        mSwitches.set(u"AUTO"_s, false, false);
    }
}

void InputBase::in_widgetBase_soloStateChanged(const QString& objectName, bool state)
{
    emit attributeChanged(objectName, u"Solo"_s, state ? u"1"_s : u"0"_s);
}

void InputBase::setMIC(const QString& input)
{
    if (mMicRow >= 0) {
        mEngine.take(mMicRow, input);
    }
}

void InputBase::set48V(bool on)
{
    if (m48VRow >= 0) {
        mEngine.take(m48VRow, on);
    }
}

void InputBase::setGAIN(float gainDb)
{
    mEngine.take(mGainRow, gainDb);
}

void InputBase::setMUTE(bool on)
{
    mEngine.take(mMuteRow, on);
}

void InputBase::setANTI(bool on)
{
    if (mAntiRow >= 0) {
        mEngine.take(mAntiRow, on);
    }
}

void InputBase::setEQ(bool on)
{
    if (mSwitches) {
        mSwitches.set(u"EQ"_s, on, false);
    }
}

void InputBase::setDUCKING(bool on)
{
    if (mSwitches) {
        mSwitches.set(u"DUCKING"_s, on, false);
    }
}

quillon::DeviceSetter InputBase::deviceSetter(QStringView attribute)
{
    if (attribute == u"Plug") {
        return [this](const QVariant& missing) { setOverlayVisible(missing.toBool()); };
    }
    if (auto setter = mMeter.setter(attribute)) {
        return setter;
    }
    return mEngine.deviceSetter(attribute);
}

void InputBase::loadSolo(bool on)
{
    mSoloMute.set(u"SOLO"_s, on, false);
}

void InputBase::loadMute(bool on)
{
    mSoloMute.set(u"MUTE"_s, on, false);
}

void InputBase::setSolo(bool on)
{
    mSoloMute.set(u"SOLO"_s, on, true);
}

void InputBase::setMute(bool on)
{
    mSoloMute.set(u"MUTE"_s, on, true);
}

bool InputBase::getSolo() const
{
    return mSoloMute.isOn(u"SOLO"_s);
}

bool InputBase::getMute() const
{
    return mSoloMute.isOn(u"MUTE"_s);
}
