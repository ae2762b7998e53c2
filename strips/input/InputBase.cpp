#include "strips/input/InputBase.h"

#include <cmath>

using namespace Qt::StringLiterals;
using quillon::AsShown;
using quillon::StripValue;
using quillon::ValueForm;

InputBase::InputBase(const quillon::InputShape& shape, const QString& objectName, QWidget* parent)
    : Solo(parent), WorkspaceObserver(objectName), mShape(shape), mHead(this),
      mEngine(*this, [this](const QString& attribute, const QString& value) { emitAttribute(attribute, value); })
{
    setObjectName(objectName);
    setMinimumSize(shape.minimum);
    connect(this, &Solo::soloStateChanged, this, &InputBase::in_widgetBase_soloStateChanged);
    connect(&mHead, &quillon::StripHead::nameEdited, this, [this] {
        mEngine.changed(mNameRow);
        rename();
    });
    // The field matches on the channel's name, in the first place of the event.
    connect(&mHead, &quillon::StripHead::closeClicked, this, [this] { emit attributeChanged(channelName(), u"Hide"_s, u"1"_s); });
}

void InputBase::adopt(QWidget* child, const char* objectName, const quillon::Place& place)
{
    child->setObjectName(QLatin1StringView(objectName));
    mChildren.push_back({child, place});
}

// Rows, in the order in which they are saved and loaded; sent are MIC, 48V, GAIN and then MUTE.

void InputBase::declare()
{
    mNameRow = mEngine.add({.key = u"ChannelName"_s,
                            .form = ValueForm::Text,
                            .initial = [this] { return channelName(); },
                            .read = [this] { return mHead.name(); },
                            .show =
                                [this](const StripValue& value) {
                                    mHead.showName(std::get<QString>(value));
                                    rename();
                                }});
    declareInput();
    declareLevel();
    if (mSlider) {
        declareBalance();
    }
    mEngine.setHooks({.fresh =
                          [this] {
                              if (mSwitches) {
                                  emitAttribute(u"EQ"_s, u"Off"_s);
                              }
                          },
                      .shown =
                          [this] {
                              if (mSlider) {
                                  emitAttribute(u"BalanceLoad"_s, toText(ValueForm::Decimal, mSlider.get()));
                              }
                              initSoloState(true, getSolo(), false, false, getMute(), false, false);
                          }});
}

void InputBase::declareInput()
{
    if (mSelector) {
        mMicRow =
            mEngine.add({.key = u"MIC"_s,
                         .form = ValueForm::Text,
                         .initial = [] { return u"Mic1"_s; },
                         .read = [this] { return mSelector.getState({}); },
                         .show = [this](const StripValue& value) { mSelector.setState(std::get<QString>(value), u"1"_s, false); },
                         .sends = {u"MIC"_s}});
    }
    if (mSwitches) {
        m48VRow =
            mEngine.add({.key = u"48V"_s,
                         .initial = [] { return 0; },
                         .read = [this] { return mSwitches.isOn(u"48V"_s) ? 1 : 0; },
                         .show = [this](const StripValue& value) { mSwitches.set(u"48V"_s, std::get<int>(value) != 0, false); },
                         .sends = {u"48V"_s}});
        mAutoGain = std::make_unique<quillon::AutoGainLink>(
            this, quillon::AutoGainLink::Host{.dial = mDial,
                                              .gainChanged = [this](float gainDb) { in_widgetDial_valueChanged(gainDb); },
                                              .storeGain = [this](float gainDb) { mEngine.store(mGainRow, gainDb); },
                                              .storedGain = [this] { return std::get<float>(mEngine.stored(mGainRow)); }});
    }
}

void InputBase::declareLevel()
{
    mSoloRow = mEngine.add({.key = u"SOLO"_s,
                            .initial = [] { return 0; },
                            .read = [this] { return getSolo() ? 1 : 0; },
                            .show = [this](const StripValue& value) { loadSolo(std::get<int>(value) != 0); },
                            .settle = [this] { return doSolo(); }});
    mMuteRow = mEngine.add({.key = u"MUTE"_s,
                            .initial = [] { return 0; },
                            .read = [this] { return getMute() ? 1 : 0; },
                            .show = [this](const StripValue& value) { loadMute(std::get<int>(value) != 0); },
                            .settle = [this] { return doMute(); },
                            .sends = {u"MUTE"_s},
                            .sendOrder = 1,
                            .whileHidden = StripValue{1}});
    mGainRow = mEngine.add({.key = u"GAIN"_s,
                            .form = ValueForm::Decimal,
                            .initial = [this] { return mGainDefault; },
                            .read = [this] { return mDial.get(); },
                            .wanted = [this] { return wantedGain(); },
                            .show =
                                [this](const StripValue& value) {
                                    const float gainDb = std::get<float>(value);
                                    mDial.set(mShape.wholeGain ? std::round(gainDb) : gainDb);
                                },
                            .sends = {u"GAIN"_s},
                            .whileHidden = AsShown{}});
}

void InputBase::declareBalance()
{
    mBalanceRow = mEngine.add({.key = u"Balance"_s,
                               .form = ValueForm::Integer,
                               .initial = [this] { return mBalanceDefault; },
                               .read = [this] { return static_cast<int>(mSlider.get()); },
                               .show = [this](const StripValue& value) { mSlider.set(static_cast<float>(std::get<int>(value))); }});
}

float InputBase::wantedGain() const
{
    return mMuteByGain && (!isStripEnabled() || getMute()) ? mMuteGain : mDial.get();
}

InputBase& InputBase::setChannelName(const QString& name)
{
    mHead.setChannelName(name);
    rename();
    return *this;
}

InputBase& InputBase::setGainDefault(float gainDb)
{
    mGainDefault = gainDb;
    mSetDialDefault(gainDb);
    return *this;
}

InputBase& InputBase::setFont(const QFont& font)
{
    mHead.setFont(font);
    mMeter.setFont(font);
    mDial.setFont(font);
    if (mSlider) {
        mSlider.setFont(font);
    }
    for (const quillon::PanelPort* group : {&mSelector, &mSwitches, &mSoloMute}) {
        if (*group) {
            group->setFont(font);
        }
    }
    if (mAutoGain) {
        mAutoGain->setFont(font);
    }
    return *this;
}

InputBase& InputBase::setUnmuteOnGain(bool on)
{
    mUnmuteOnGain = on;
    return *this;
}

InputBase& InputBase::setCloseEnabled(bool on)
{
    mCloseEnabled = on;
    armClose();
    return *this;
}

InputBase& InputBase::setSaveEvents(bool on)
{
    mEngine.setSaveEvents(on);
    return *this;
}

InputBase& InputBase::setNameEditable(bool editable)
{
    mHead.setNameEditable(editable);
    return *this;
}

InputBase& InputBase::setOverlayVisible(bool visible)
{
    mHead.setOverlayVisible(visible);
    return *this;
}

void InputBase::armClose()
{
    mHead.setCloseArmed(mCloseEnabled && isStripEnabled());
}

void InputBase::rename()
{
    const bool chinese = mLanguage == "Chinese"_L1;
    const QString name = mHead.name();
    const QString naming = name + u'\n' + mLanguage;
    if (naming == mNaming) {
        return; // a dozen widgets would tell assistive technology of no change, a third of the time of a load
    }
    mNaming = naming;
    const auto text = [&](const QString& english, const QString& other) { return name + u' ' + (chinese ? other : english); };
    mHead.setTexts(text(u"Name"_s, u"名称"_s), text(u"Hide"_s, u"隐藏"_s));
    mMeter.widget->setAccessibleName(text(u"Level"_s, u"电平"_s));
    mDial.widget->setAccessibleName(text(u"Gain"_s, u"增益"_s));
    if (mSlider) {
        mSlider.widget->setAccessibleName(text(u"Balance"_s, u"声像"_s));
    }
    for (const quillon::PanelPort* group : {&mSelector, &mSwitches, &mSoloMute}) {
        if (*group) {
            group->setAccessibleName(name);
        }
    }
}

void InputBase::onAppSettingsChanged(QString, QString attribute, QString value)
{
    if (attribute != "Language"_L1 || (value != "English"_L1 && value != "Chinese"_L1)) {
        return;
    }
    mLanguage = value;
    for (const quillon::PanelPort* group : {&mSelector, &mSwitches, &mSoloMute}) {
        if (*group) {
            group->setLanguage(value);
        }
    }
    if (mAutoGain) {
        mAutoGain->setLanguage(value);
    }
    rename();
}

void InputBase::setStripEnabled(bool enabled)
{
    // A soloed strip leaves the count with its place in the field. One that is not loaded has not entered it yet.
    if (enabled != isStripEnabled() && mEngine.isLoaded() && getSolo()) {
        emitAttribute(u"Solo"_s, enabled ? u"1"_s : u"0"_s);
    }
    mEngine.setStripEnabled(enabled);
    armClose();
}

void InputBase::resizeEvent(QResizeEvent* event)
{
    Solo::resizeEvent(event);
    mHead.layout();
    for (const Child& child : mChildren) {
        child.widget->setGeometry(placeRect(child.place, size(), child.widget->minimumSize()));
    }
}
