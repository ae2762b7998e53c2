#include "strips/origin/OriginBase.h"

#include "strips/PanelRows.h"

#include <cmath>

using namespace Qt::StringLiterals;
using quillon::AsShown;
using quillon::StripValue;
using quillon::ValueForm;

OriginBase::OriginBase(QSize minimum, const QString& objectName, QWidget* parent) : PlainStrip(minimum, objectName, parent) {}

const quillon::PanelPort* OriginBase::panelOf(const QString& button) const
{
    const auto at = std::ranges::find_if(mPanels, [&](const auto& panel) { return panel->buttons.contains(button); });
    return at == mPanels.end() ? nullptr : &(*at)->port;
}

// Rows, in the order in which they are saved and loaded; sent are MIC, 48V, the gain and then MUTE.

void OriginBase::declareInput()
{
    if (const auto* panel = panelOf(u"Mic1"_s)) {
        const RowId row = engine().add(quillon::microphoneRow(*panel));
        for (const QString& button : {u"Mic1"_s, u"Mic35"_s, u"MicHP"_s}) {
            mRows.insert(button, row);
        }
    }
    if (const auto* panel = panelOf(u"48V"_s)) {
        mRows.insert(u"48V"_s, engine().add(quillon::switchRow(*panel, u"48V"_s)));
    }
    if (panelOf(u"AUTO"_s)) {
        mAutoGain = std::make_unique<quillon::AutoGainLink>(
            this, quillon::AutoGainLink::Host{.dial = mGain,
                                              .gainChanged = [this](float gainDb) { gainChanged(gainDb); },
                                              .storeGain = [this](float gainDb) { engine().store(mGainRow, gainDb); },
                                              .storedGain =
                                                  [this] {
                                                      return hasStore() ? std::optional(std::get<float>(engine().stored(mGainRow)))
                                                                        : std::nullopt;
                                                  }});
        body().onFont([this](const QFont& font) { mAutoGain->setFont(font); });
        body().onLanguage([this](const QString& language) { mAutoGain->setLanguage(language); });
        mAutoGain->listenTo(mMeter);
    }
}

void OriginBase::declareLevel(const QStringList& gains)
{
    quillon::StripRow gain{.key = u"GAIN"_s,
                           .form = ValueForm::Decimal,
                           .initial = [this] { return mGainDefault; },
                           .read = [this] { return gainDb(); },
                           .wanted = [this] { return wantedGain(); },
                           .show =
                               [this](const StripValue& value) {
                                   const float gainDb = std::get<float>(value);
                                   mGain.set(mWholeGain ? std::round(gainDb) : gainDb);
                               },
                           .whileHidden = AsShown{}};
    quillon::StripRow mute = quillon::switchRow(*panelOf(u"MUTE"_s), u"MUTE"_s);
    mute.whileHidden = StripValue{1};
    gain.sends = gains;
    if (gains.isEmpty()) {
        mute.sends.clear();
    }
    mGainRow = engine().add(std::move(gain));
    mRows.insert(u"MUTE"_s, engine().add(std::move(mute)));
}

void OriginBase::declare(const QStringList& gains)
{
    declareInput();
    declareLevel(gains);
    engine().setHooks({.fresh = [this] {
        if (panelOf(u"EQ"_s)) {
            raise(u"EQ"_s, u"Off"_s);
        }
    }});
}

OriginBase& OriginBase::setGainDefault(float gainDb)
{
    mGainDefault = gainDb;
    mSetGainDefault(gainDb);
    return *this;
}

OriginBase& OriginBase::setGainRange(const quillon::GainScale& scale)
{
    mSetGainRange(scale);
    return *this;
}

OriginBase& OriginBase::setUnmuteOnGain(bool on)
{
    mUnmuteOnGain = on;
    return *this;
}

OriginBase& OriginBase::setMuteGain(float gainDb)
{
    mMuteGain = gainDb;
    return *this;
}

bool OriginBase::isMuted() const
{
    return panelOf(u"MUTE"_s)->isOn(u"MUTE"_s);
}

float OriginBase::wantedGain() const
{
    return mMuteGain && (!isStripEnabled() || isMuted()) ? *mMuteGain : gainDb();
}

void OriginBase::gainChanged(float gainDb)
{
    engine().changed(mGainRow, gainDb);
    if (mUnmuteOnGain && isMuted()) {
        panelOf(u"MUTE"_s)->set(u"MUTE"_s, false, true);
    }
}

void OriginBase::panelChanged(const QString& button, const QString& state)
{
    if (button == "EQ"_L1 || button == "DUCKING"_L1) {
        if (const QString value = quillon::windowEvent(state); !value.isEmpty()) {
            raise(button, value);
        }
    } else if (button == "AUTO"_L1) {
        if (state == "1"_L1) {
            runAutoGain();
        }
    } else if (const auto row = mRows.constFind(button); row != mRows.constEnd()) {
        engine().changed(*row);
    }
}

void OriginBase::runAutoGain()
{
    if (mAutoGain->run(body().head())) {
        panelOf(u"AUTO"_s)->set(u"AUTO"_s, false, false);
    }
}

void OriginBase::take(QStringView attribute, const QVariant& value)
{
    if (const quillon::DeviceSetter setter = deviceSetter(attribute)) {
        setter(value);
    }
}

void OriginBase::setEQ(bool on)
{
    if (const auto* panel = panelOf(u"EQ"_s)) {
        panel->set(u"EQ"_s, on, false);
    }
}

void OriginBase::setDUCKING(bool on)
{
    if (const auto* panel = panelOf(u"DUCKING"_s)) {
        panel->set(u"DUCKING"_s, on, false);
    }
}

quillon::DeviceSetter OriginBase::deviceSetter(QStringView attribute)
{
    if (auto setter = mMeter.setter(attribute)) {
        return setter;
    }
    return PlainStrip::deviceSetter(attribute);
}
