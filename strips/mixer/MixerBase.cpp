#include "strips/mixer/MixerBase.h"

#include "controls/VSliderS1M1.h"
#include "controls/VolumeMeterS1M3.h"
#include "controls/VolumeMeterS1M4.h"
#include "controls/VolumeMeterS1M5.h"
#include "strips/LinkButton.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using quillon::StripText;
using quillon::StripValue;
using quillon::ValueForm;

namespace
{

const QString kSuffixes[]{QString(), u"Left"_s, u"Right"_s};
constexpr quillon::StripText kLevels[]{{"Left level", "左电平"}, {"Right level", "右电平"}};
constexpr quillon::StripText kBalances[]{{"Left balance", "左声像"}, {"Right balance", "右声像"}};
constexpr float kCentre = 50;
constexpr std::array<float, 2> kStraight{0, 100}; // left to left, right to right

QString prefixOf(const quillon::Mix& mix)
{
    return mix.key + u'_';
}

quillon::ValuePort faderPort(VSliderS1M1* fader)
{
    return {.widget = fader,
            .get = [fader] { return static_cast<float>(fader->value()); },
            .set = [fader](float value) { fader->setValue(static_cast<int>(value)); },
            .setFont = [fader](const QFont& font) { fader->setFont(font); }};
}

template<class Meter> quillon::MeterPort gainedMeterPort(Meter* meter)
{
    return {.widget = meter, .feed = {}, .feedLeft = {}, .feedRight = {}, .setFont = [meter](const QFont& font) {
                meter->setFont(font);
            }};
}

template<class Meter> void setRatios(Meter* meter, const std::array<int, 5>& w, const std::array<int, 4>& h)
{
    meter->setWidthRatio(w[0], w[1], w[2], w[3], w[4]);
    meter->setHeightRatio(h[0], h[1], h[2], h[3]);
    meter->setScaleLinesHidden(true);
}

} // namespace

MixerBase::MixerBase(const quillon::MixerShape& shape, const QString& objectName, QWidget* parent)
    : Solo(parent), WorkspaceObserver(objectName), StripSetup(true), mShape(shape), mBody(this),
      mEngine(*this, [this](const QString& attribute, const QString& value) { emitAttribute(attribute, value); })
{
    setObjectName(objectName);
    setMinimumSize(shape.minimum);
    connect(this, &Solo::soloStateChanged, this, &MixerBase::in_widgetBase_soloStateChanged);
}

// Controls.

void MixerBase::adoptDial(std::size_t channel, const quillon::ValuePort& port, std::function<void(float)> setDefault)
{
    static constexpr const char* kNames[]{"widgetDialLeft", "widgetDialRight"};
    mBalances[channel] = {.dial = port, .setDefault = std::move(setDefault)};
    mBody.adopt(port, kNames[channel], mShape.dials[channel], kBalances[channel]);
}

void MixerBase::addLinkButton()
{
    mLink = new quillon::LinkButton(this);
    mBody.adopt(
        quillon::ValuePort{.widget = mLink, .get = {}, .set = {}, .setFont = [this](const QFont& font) { mLink->setFace(font); }},
        "pushButtonLink", mShape.link, {"Link", "联动"});
    connect(mLink, &QPushButton::clicked, this, &MixerBase::on_pushButtonLink_clicked);
}

void MixerBase::addLinkedFader()
{
    addLinkedMeter(0, new VolumeMeterS1M4(this), "widgetLinkedMeterLeft");
    addFader(Both, "widgetLinkedVSlider", {"Gain", "增益"}, &MixerBase::in_widgetLinkedVSlider_valueChanged);
    addLinkedMeter(1, new VolumeMeterS1M5(this), "widgetLinkedMeterRight");
}

void MixerBase::addUnlinkFaders()
{
    addFader(Left, "widgetUnlinkVSliderLeft", {"Left gain", "左增益"}, &MixerBase::in_widgetUnlinkVSliderLeft_valueChanged);
    auto* meter = new VolumeMeterS1M3(this);
    setRatios(meter, mShape.unlinkWidths, mShape.heights);
    mBody.adopt(gainedMeterPort(meter), "widgetUnlinkMeter", mShape.unlinkMeter);
    mUnlinkFeeds = {[meter](int level, int gain) { meter->setVolumeMeterLeft(level, gain); },
                    [meter](int level, int gain) { meter->setVolumeMeterRight(level, gain); }};
    mDecays.emplace_back([meter] {
        meter->startDecayLeft();
        meter->startDecayRight();
    });
    mForms[0] += meter;
    addFader(Right, "widgetUnlinkVSliderRight", {"Right gain", "右增益"}, &MixerBase::in_widgetUnlinkVSliderRight_valueChanged);
}

void MixerBase::addFader(Side side, const char* objectName, const StripText& meaning, void (MixerBase::*changed)(int))
{
    auto* fader = new VSliderS1M1(this);
    fader->setRange(quillon::kMixFloorDb, quillon::kMixTopDb);
    fader->setDefault(0);
    fader->setMinusInfinity(true);
    connect(fader, &VSliderS1M1::valueChanged, this, changed);
    mBody.adopt(faderPort(fader), objectName, mShape.faders[side], meaning);
    mSides[side].fader = fader;
    mForms[side == Both ? 1 : 0] += fader;
}

template<class Meter> void MixerBase::addLinkedMeter(std::size_t channel, Meter* meter, const char* objectName)
{
    setRatios(meter, mShape.linkedWidths, mShape.heights);
    mBody.adopt(gainedMeterPort(meter), objectName, mShape.linkedMeters[channel], kLevels[channel]);
    mLinkedFeeds[channel] = [meter](int level, int gain) { meter->setVolumeMeter(level, gain); };
    mDecays.emplace_back([meter] { meter->startDecay(); });
    mForms[1] += meter;
}

void MixerBase::adoptButtons(Side side, const quillon::PanelPort& port, const char* objectName)
{
    mSides[side].buttons = port;
    QList<QWidget*>& form = mForms[side == Both ? 1 : 0];
    if (!form.contains(port.widget)) {
        mBody.adopt(port, objectName, mShape.groups[side]);
        form += port.widget;
    }
}

// Rows, in the order in which they are saved and loaded.

void MixerBase::declare()
{
    declareName();
    if (isLinkable()) {
        declareLink();
    }
    const QList<Side> sides = isLinkable() ? QList{Both, Left, Right} : QList{Both};
    for (const Side side : sides) {
        mSides[side].gainRow =
            mEngine.add({.key = u"GAIN"_s + kSuffixes[side],
                         .form = ValueForm::Integer,
                         .initial = [] { return 0; },
                         .read = [this, side] { return mSides[side].fader->value(); },
                         .show = [this, side](const StripValue& value) { mSides[side].fader->setValue(std::get<int>(value)); },
                         .perMix = true});
    }
    using Do = bool (MixerBase::*)();
    constexpr Do kSolos[]{&MixerBase::doSolo, &MixerBase::doSoloLeft, &MixerBase::doSoloRight};
    constexpr Do kMutes[]{&MixerBase::doMute, &MixerBase::doMuteLeft, &MixerBase::doMuteRight};
    for (const Side side : sides) {
        mSides[side].soloRow = addFlag(side, u"SOLO"_s, [this, act = kSolos[side]] { return (this->*act)(); });
    }
    for (const Side side : sides) {
        mSides[side].muteRow = addFlag(side, u"MUTE"_s, [this, act = kMutes[side]] { return (this->*act)(); });
    }
    for (const Side side : sides) {
        if (mHasAnti) {
            mSides[side].antiRow = addFlag(side, u"ANTI"_s, {});
        }
    }
    declareGains();
    mEngine.setHooks({.shown =
                          [this] {
                              showForm();
                              initSoloState(mShownLinked, getSolo(), getSoloLeft(), getSoloRight(), getMute(), getMuteLeft(),
                                            getMuteRight());
                          },
                      .visit = [this](const QString& prefix) { return visit(prefix); }});
    showForm();
}

void MixerBase::declareLink()
{
    mLinkRow = mEngine.add({.key = u"Link"_s,
                            .initial = [this] { return mLinkDefault ? 1 : 0; },
                            .read = [this] { return mShownLinked ? 1 : 0; },
                            .show = [this](const StripValue& value) { mShownLinked = std::get<int>(value) != 0; },
                            .perMix = true});
    // One dial shows the balance of two forms: showForm() moves it.
    const auto add = [this](const QString& key, float initial) {
        return mEngine.add(
            {.key = key, .form = ValueForm::Integer, .initial = [initial] { return static_cast<int>(initial); }, .perMix = true});
    };
    for (std::size_t i = 0; i < mBalances.size(); ++i) {
        mBalances[i].rows[1] = add(u"BalanceLinked"_s + kSuffixes[1 + i], kStraight[i]);
    }
    for (std::size_t i = 0; i < mBalances.size(); ++i) {
        mBalances[i].rows[0] = add(u"BalanceUnlink"_s + kSuffixes[1 + i], kCentre);
    }
}

MixerBase::RowId MixerBase::addFlag(Side side, const QString& button, std::function<bool()> settle)
{
    return mEngine.add(
        {.key = button + kSuffixes[side],
         .initial = [] { return 0; },
         .read = [this, side, button] { return isOn(side, button) ? 1 : 0; },
         .show = [this, side, button](const StripValue& value) { setButton(side, button, std::get<int>(value) != 0, false); },
         .settle = std::move(settle),
         .perMix = true});
}

void MixerBase::declareGains()
{
    static const QString kNames[]{u"GainMLCL"_s, u"GainMLCR"_s, u"GainMRCL"_s, u"GainMRCR"_s};
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
        mEngine.add({.form = ValueForm::Integer,
                     .wanted = [this, i] { return gains(shownPair())[i]; },
                     .elsewhere = [this, i] { return gains(mVisited)[i]; },
                     .sends = {kNames[i]},
                     .whileHidden = StripValue{0},
                     .perMix = true});
    }
}

// Values, of the mix that is shown and of another one.

quillon::MixPair MixerBase::shownPair() const
{
    quillon::MixPair pair;
    for (std::size_t i = 0; i < pair.size(); ++i) {
        const Side side = sideOf(i, mShownLinked);
        pair[i] = {.gainDb = mSides[side].fader->value(), .mute = isOn(side, u"MUTE"_s), .inverted = isOn(side, u"ANTI"_s)};
        if (isLinkable()) {
            pair[i].balance = mBalances[i].dial.get();
        }
    }
    return pair;
}

quillon::MixPair MixerBase::storedPair(const quillon::Mix& mix) const
{
    const QString prefix = prefixOf(mix);
    const auto flag = [&](RowId row) { return row >= 0 && std::get<int>(mEngine.stored(row, prefix)) != 0; };
    const bool linked = !isLinkable() || flag(mLinkRow);
    quillon::MixPair pair;
    for (std::size_t i = 0; i < pair.size(); ++i) {
        const Controls& side = mSides[sideOf(i, linked)];
        pair[i] = {.gainDb =
                       std::clamp(std::get<int>(mEngine.stored(side.gainRow, prefix)), quillon::kMixFloorDb, quillon::kMixTopDb),
                   .mute = mix.soloCount != 0 ? !flag(side.soloRow) : flag(side.muteRow),
                   .inverted = flag(side.antiRow)};
        if (isLinkable()) {
            pair[i].balance = storedBalance(mBalances[i].rows[linked], prefix);
        }
    }
    return pair;
}

float MixerBase::storedBalance(RowId row, const QString& prefix) const
{
    return static_cast<float>(std::clamp(std::get<int>(mEngine.stored(row, prefix)), 0, 100));
}

bool MixerBase::visit(const QString& prefix)
{
    const quillon::Mix& mix = *std::ranges::find(*mMixes, prefix, prefixOf);
    mVisited = storedPair(mix);
    return mix.visible.contains(channelName());
}

int MixerBase::solosTaken() const
{
    return isLinked() ? int(getSolo()) : int(getSoloLeft()) + int(getSoloRight());
}

MixerBase& MixerBase::setMixes(quillon::Mixes& mixes)
{
    mMixes = &mixes;
    QStringList prefixes;
    for (const quillon::Mix& mix : mixes) {
        prefixes += prefixOf(mix);
    }
    mEngine.setPrefixes(prefixes);
    setSoloCount(mixes.empty() ? nullptr : &mixes.front().soloCount);
    return *this;
}

void MixerBase::setMix(QString mix)
{
    if (!mMixes) {
        return;
    }
    const auto found = std::ranges::find(*mMixes, mix, &quillon::Mix::key);
    if (found != mMixes->end()) {
        setSoloCount(&found->soloCount);
        mEngine.selectPrefix(prefixOf(*found), found->visible.contains(channelName()));
        armClose();
    }
}

void MixerBase::setStripEnabled(bool enabled)
{
    // A soloed strip takes its place in the count with that in the field. One that is not loaded has not entered it yet.
    const int solos = enabled != isStripEnabled() && mEngine.isLoaded() ? solosTaken() : 0;
    const auto tell = [&] {
        for (int i = 0; i < solos; ++i) {
            emitAttribute(u"Solo"_s, enabled ? u"1"_s : u"0"_s);
        }
    };
    if (enabled) {
        tell(); // its mute is right before anything is sent
    }
    mEngine.setStripEnabled(enabled);
    if (!enabled) {
        tell();
    }
    armClose();
}

// What moves the controls.

void MixerBase::showForm()
{
    for (const bool linked : {false, true}) {
        for (QWidget* widget : std::as_const(mForms[linked])) {
            widget->setVisible(linked == mShownLinked);
        }
    }
    if (!isLinkable()) {
        return;
    }
    if (std::exchange(mMeteredLinked, mShownLinked) != mShownLinked) {
        // The meters of a form stand where they were when it was shown last.
        for (const auto& startDecay : mDecays) {
            startDecay();
        }
    }
    mLink->setChecked(mShownLinked);
    for (std::size_t i = 0; i < mBalances.size(); ++i) {
        const Balance& balance = mBalances[i];
        balance.setDefault(mShownLinked ? kStraight[i] : kCentre);
        balance.dial.set(storedBalance(balance.rows[mShownLinked], mEngine.prefix()));
    }
}

void MixerBase::on_pushButtonLink_clicked()
{
    mEngine.changeTogether([this] {
        mShownLinked = !mShownLinked;
        showForm();
        setLinked(mShownLinked);
        mEngine.changed(mLinkRow);
    });
}

void MixerBase::balanceChanged(std::size_t channel, float value)
{
    mEngine.changed(mBalances[channel].rows[mShownLinked], static_cast<int>(value));
}

void MixerBase::buttonChanged(Side side, const QString& button)
{
    const Controls& controls = mSides[side];
    mEngine.changed(button == "SOLO"_L1 ? controls.soloRow : button == "MUTE"_L1 ? controls.muteRow : controls.antiRow);
}

void MixerBase::setButton(Side side, const QString& button, bool on, bool emitSignal)
{
    if (mSides[side].buttons) {
        mSides[side].buttons.set(button, on, emitSignal);
    }
}

bool MixerBase::isOn(Side side, const QString& button) const
{
    return mSides[side].buttons && mSides[side].buttons.isOn(button);
}

void MixerBase::in_widgetBase_soloStateChanged(const QString& objectName, bool state)
{
    emit attributeChanged(objectName, u"Solo"_s, state ? u"1"_s : u"0"_s);
}

void MixerBase::feedMeter(std::size_t channel, int tenthsOfDb)
{
    const Side side = sideOf(channel, mShownLinked);
    const int gain = isOn(side, u"MUTE"_s) ? quillon::kMixFloorDb : mSides[side].fader->value();
    (mShownLinked ? mLinkedFeeds : mUnlinkFeeds)[channel](tenthsOfDb, gain);
}

quillon::DeviceSetter MixerBase::deviceSetter(QStringView attribute)
{
    if (attribute == u"Plug") {
        return [this](const QVariant& missing) { setOverlayVisible(missing.toBool()); };
    }
    if (attribute == u"MeterLeft") {
        return [this](const QVariant& level) { setVolumeMeterLeft(level.toInt()); };
    }
    if (attribute == u"MeterRight") {
        return [this](const QVariant& level) { setVolumeMeterRight(level.toInt()); };
    }
    return {}; // the device does not report what it mixes
}

// Set-up.

MixerBase& MixerBase::setLinkDefault(bool linked)
{
    mLinkDefault = linked;
    return *this;
}

void MixerBase::onAppSettingsChanged(QString, QString attribute, QString value)
{
    mBody.onAppSettingsChanged(attribute, value);
}

void MixerBase::resizeEvent(QResizeEvent* event)
{
    Solo::resizeEvent(event);
    mBody.layout();
}
