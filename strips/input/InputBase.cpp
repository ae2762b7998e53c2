#include "strips/input/InputBase.h"

#include "strips/PanelRows.h"

#include <cmath>

using namespace Qt::StringLiterals;
using quillon::AsShown;
using quillon::StripValue;
using quillon::ValueForm;

InputBase::InputBase(const quillon::InputShape& shape, const QString& objectName, QWidget* parent)
    : Solo(parent), WorkspaceObserver(objectName), mShape(shape), mBody(this),
      mEngine(*this, [this](const QString& attribute, const QString& value) { emitAttribute(attribute, value); })
{
    setObjectName(objectName);
    setMinimumSize(shape.minimum);
    connect(this, &Solo::soloStateChanged, this, &InputBase::in_widgetBase_soloStateChanged);
}

// Rows, in the order in which they are saved and loaded; sent are MIC, 48V, GAIN, MUTE and then ANTI.

void InputBase::declare()
{
    declareName();
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
        mMicRow = mEngine.add(quillon::microphoneRow(mSelector));
    }
    if (mSwitches) {
        m48VRow = mEngine.add(quillon::switchRow(mSwitches, u"48V"_s));
        mAutoGain = std::make_unique<quillon::AutoGainLink>(
            this, quillon::AutoGainLink::Host{
                      .dial = mDial,
                      .gainChanged = [this](float gainDb) { in_widgetDial_valueChanged(gainDb); },
                      .storeGain = [this](float gainDb) { mEngine.store(mGainRow, gainDb); },
                      .storedGain =
                          [this] { return hasStore() ? std::optional(std::get<float>(mEngine.stored(mGainRow))) : std::nullopt; }});
        mBody.onFont([this](const QFont& font) { mAutoGain->setFont(font); });
        mBody.onLanguage([this](const QString& language) { mAutoGain->setLanguage(language); });
        mAutoGain->listenTo(mMeter);
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
    if (mHasAnti) {
        quillon::StripRow anti = quillon::switchRow(mSoloMute, u"ANTI"_s);
        anti.sendOrder = 2;
        anti.whileHidden = StripValue{0};
        mAntiRow = mEngine.add(std::move(anti));
    }
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

InputBase& InputBase::setGainDefault(float gainDb)
{
    mGainDefault = gainDb;
    mSetDialDefault(gainDb);
    return *this;
}

InputBase& InputBase::setUnmuteOnGain(bool on)
{
    mUnmuteOnGain = on;
    return *this;
}

void InputBase::onAppSettingsChanged(QString, QString attribute, QString value)
{
    mBody.onAppSettingsChanged(attribute, value);
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
    mBody.layout();
}
