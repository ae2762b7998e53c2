#include "strips/output/RouteStrip.h"

#include "controls/PushButtonGroups.h"
#include "controls/ToolButtonS1M1.h"
#include "controls/VolumeMeterS1M3.h"
#include "controls/VolumeMeterS1M4.h"
#include "controls/VolumeMeterS1M5.h"
#include "strips/LinkButton.h"

#include <QColor>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr int kSilenceDb = -90;
constexpr int kForgotten = std::numeric_limits<int>::min(); // unsent() of a number

constexpr StripText kSections[]{{"Mix", "混音"}, {"Mixer", "混音"}, {"Input", "输入"}, {"Effect", "效果"}};

QString sectionIn(const QString& name, bool isChinese)
{
    for (const StripText& text : kSections) {
        if (name == QLatin1StringView(text.english)) {
            return text.in(isChinese);
        }
    }
    return name;
}

// What all meters of these strips have.
template<class Meter> Meter* dressed(Meter* meter)
{
    meter->setScaleLinesHidden(true);
    meter->setHeightRatio(2, 2, 94, 2);
    return meter;
}

} // namespace

constinit const std::array<RouteStrip::SideNames, RouteStrip::SideCount> RouteStrip::kSides{{
    {"widgetLinkedVSlider",
     "widgetPushButtonGroup1",
     "",
     {"Gain", "增益"},
     &RouteStrip::in_widgetLinkedVSlider_valueChanged,
     &RouteStrip::in_widgetPushButtonGroup1_stateChanged},
    {"widgetUnlinkVSliderLeft",
     "widgetPushButtonGroup2",
     "Left",
     {"Gain left", "左增益"},
     &RouteStrip::in_widgetUnlinkVSliderLeft_valueChanged,
     &RouteStrip::in_widgetPushButtonGroup2_stateChanged},
    {"widgetUnlinkVSliderRight",
     "widgetPushButtonGroup3",
     "Right",
     {"Gain right", "右增益"},
     &RouteStrip::in_widgetUnlinkVSliderRight_valueChanged,
     &RouteStrip::in_widgetPushButtonGroup3_stateChanged},
}};

RouteStrip::RouteStrip(const RouteKind& kind, const RouteShape& shape, const QString& objectName, QWidget* parent)
    : PlainStrip(shape.minimum, objectName, parent), mKind(kind), mShape(shape)
{
}

void RouteStrip::addSource()
{
    mSource = new ToolButtonS1M1(this);
    connect(mSource, &ToolButtonS1M1::attributeChanged, this,
            [this](const QString&, const QString&, const QString& source) { in_widgetToolButton_actionChanged(source); });
    body().adopt(ValuePort{.widget = mSource, .setFont = [this](const QFont& font) { mSource->setFont(font); }}, "widgetToolButton",
                 mShape.source, {"Source", "音源"});
    body().onLanguage([this](const QString&) { fillMenu(); });
}

void RouteStrip::addMeters()
{
    const auto adopt = [this](auto* meter, const char* objectName, const Place& place, const StripText& meaning) {
        body().adopt(MeterPort{.widget = meter, .setFont = [meter](const QFont& font) { meter->setFont(font); }}, objectName, place,
                     meaning);
    };
    mMeterLeft = dressed(new VolumeMeterS1M4(this));
    mMeterLeft->setWidthRatio(43, 8, 20, 15, 14);
    adopt(mMeterLeft, "widgetLinkedMeterLeft", mShape.meterLeft, {"Level left", "左电平"});
    mMeterRight = dressed(new VolumeMeterS1M5(this));
    mMeterRight->setWidthRatio(43, 8, 20, 15, 14);
    adopt(mMeterRight, "widgetLinkedMeterRight", mShape.meterRight, {"Level right", "右电平"});
    if (mShape.hasPair()) {
        mMeterPair = dressed(new VolumeMeterS1M3(this));
        mMeterPair->setWidthRatio(9, 6, 12, 9, 28);
        adopt(mMeterPair, "widgetUnlinkMeter", mShape.meter, {"Level", "电平"});
    }
}

void RouteStrip::addLink()
{
    mLink = new LinkButton(this);
    connect(mLink, &QPushButton::clicked, this, &RouteStrip::on_pushButtonLink_clicked);
    body().adopt(ValuePort{.widget = mLink, .setFont = [this](const QFont& font) { mLink->setFace(font); }}, "pushButtonLink",
                 mShape.link, {"Link", "联动"});
}

void RouteStrip::addMute(Side side, const Place& place)
{
    const auto adopt = [this, side, &place](auto* group) {
        part(side).mute = panelPort(group);
        connect(group, &std::remove_pointer_t<decltype(group)>::stateChanged, this, kSides[side].muteMoved);
        body().adopt(part(side).mute, kSides[side].mute, place);
    };
    if (side == Linked) {
        adopt(new PushButtonGroupS1M4(this));
    } else {
        adopt(new PushButtonGroupS1M8(this));
    }
}

// Rows behind the name's, in the order in which they are saved and loaded; sent are AudioSource, the gains and then the mutes.

void RouteStrip::declare()
{
    mSourceRow = engine().add({.key = u"AudioSource"_s,
                               .form = ValueForm::Text,
                               .initial = [this] { return mSourceDefault; },
                               .read = [this] { return mSource->currentItem(); },
                               .show = [this](const StripValue& value) { mSource->setCurrentItem(std::get<QString>(value)); },
                               .sends = {u"AudioSource"_s}});
    if (mLink) {
        mLinkRow = engine().add({.key = u"Link"_s,
                                 .initial = [this] { return mKind.linkDefault ? 1 : 0; },
                                 .read = [this] { return mLinked ? 1 : 0; },
                                 .show = [this](const StripValue& value) { showForm(std::get<int>(value) != 0); }});
        declarePart(Linked);
        declarePart(Left);
        declarePart(Right);
        mSentGains = {declareSentGain({u"GAINLeft"_s}, Left), declareSentGain({u"GAINRight"_s}, Right)};
    } else {
        declarePart(Linked);
        mSentGains = {declareSentGain({u"GAINLeft"_s, u"GAINRight"_s}, Linked)};
    }
}

void RouteStrip::declarePart(Side side)
{
    const QString suffix = QLatin1StringView(kSides[side].suffix);
    Part& declared = part(side);
    declared.gainRow = engine().add({.key = u"GAIN"_s + suffix,
                                     .form = mKind.gainForm,
                                     .initial = [this] { return gainValue(mGainDefault); },
                                     .read = [this, side] { return gainValue(part(side).fader.get()); },
                                     .show =
                                         [this, side](const StripValue& value) {
                                             part(side).fader.set(
                                                 std::visit([](const auto& number) { return QVariant(number).toFloat(); }, value));
                                         }});
    declared.muteRow = engine().add(
        {.key = u"MUTE"_s + suffix,
         .initial = [] { return 0; },
         .read = [this, side] { return isMuted(part(side)) ? 1 : 0; },
         .show = [this, side](const StripValue& value) { part(side).mute.set(u"MUTE"_s, std::get<int>(value) != 0, false); }});
    declared.sentMute = engine().add({.form = ValueForm::Integer,
                                      .read = [this, side] { return wantedMute(side); },
                                      .settle = [] { return false; },
                                      .sends = {u"MUTE"_s + suffix},
                                      .sendOrder = 2,
                                      .whileHidden = AsShown{}});
}

StripEngine::RowId RouteStrip::declareSentGain(const QStringList& names, Side side)
{
    return engine().add({.form = mKind.gainForm,
                         .read = [this, side] { return wantedGain(side); },
                         .settle = [] { return false; },
                         .sends = names,
                         .sendOrder = 1,
                         .whileHidden = AsShown{}});
}

StripValue RouteStrip::gainValue(float gainDb) const
{
    return mKind.gainForm == ValueForm::Integer ? StripValue(static_cast<int>(gainDb)) : StripValue(gainDb);
}

StripValue RouteStrip::wantedGain(Side side) const
{
    const Part& level = partOf(side);
    return gainValue(mKind.muteByGain && (!isStripEnabled() || isMuted(level)) ? mKind.muteGain : level.fader.get());
}

StripValue RouteStrip::wantedMute(Side side) const
{
    if (!isShown(side)) {
        return unsent(ValueForm::Integer); // the other form speaks; showForm() has forgotten what this one said
    }
    return !isStripEnabled() || isMuted(mParts[side]) ? 1 : 0;
}

RouteStrip& RouteStrip::setGainDefault(float gainDb)
{
    mGainDefault = gainDb;
    for (const auto& set : mSetFaderDefaults) {
        set(gainDb);
    }
    return *this;
}

RouteStrip& RouteStrip::setAudioSourceDefault(const QString& source)
{
    mSourceDefault = source;
    return *this;
}

RouteStrip& RouteStrip::setAudioSourceList(const QString& section, const QStringList& sources)
{
    mSections.push_back({section, sources});
    fillMenu();
    return *this;
}

void RouteStrip::fillMenu()
{
    mSource->clear();
    for (const Section& section : mSections) {
        const QString name = sectionIn(section.name, body().isChinese());
        mSource->addMenu(name);
        for (const QString& source : section.sources) {
            mSource->addItem(name, source);
        }
    }
}

RouteStrip& RouteStrip::setUnmuteOnGain(bool on)
{
    mUnmuteOnGain = on;
    return *this;
}

RouteStrip& RouteStrip::setAccentColour(const QColor& colour)
{
    mSource->setTextColour(colour.isValid() ? colour : QColor(216, 216, 216));
    return *this;
}

const QString& RouteStrip::audioSource() const
{
    return mSource->currentItem();
}

void RouteStrip::faderMoved(Side side)
{
    engine().changed(part(side).gainRow);
    if (mUnmuteOnGain && isMuted(part(side))) {
        part(side).mute.set(u"MUTE"_s, false, true);
    }
}

void RouteStrip::muteMoved(Side side, const QString& button)
{
    if (button == "MUTE"_L1) {
        engine().changed(part(side).muteRow);
    }
}

void RouteStrip::in_widgetToolButton_actionChanged(const QString& source)
{
    engine().changed(mSourceRow, source);
    if (mKind.decaysWithSource) {
        startDecay();
    }
}

/// What the meters showed was another signal's.
void RouteStrip::startDecay()
{
    mMeterLeft->startDecay();
    mMeterRight->startDecay();
    if (mMeterPair) {
        mMeterPair->startDecayLeft();
        mMeterPair->startDecayRight();
    }
}

void RouteStrip::on_pushButtonLink_clicked()
{
    showForm(!mLinked);
    engine().changed(mLinkRow);
}

void RouteStrip::showForm(bool linked)
{
    const bool changes = std::exchange(mLinked, linked) != linked;
    if (!mLink) {
        return;
    }
    if (changes) {
        startDecay();
    }
    mLink->setChecked(linked);
    mMeterLeft->setVisible(linked);
    mMeterRight->setVisible(linked);
    mMeterPair->setVisible(!linked);
    for (const Side side : {Linked, Left, Right}) {
        part(side).fader.widget->setVisible(isShown(side));
        part(side).mute.widget->setVisible(isShown(side));
        if (!isShown(side)) {
            engine().take(part(side).sentMute, kForgotten);
        }
    }
}

void RouteStrip::setAudioSource(const QString& source)
{
    engine().take(mSourceRow, source);
}

void RouteStrip::setGAIN(float gainDb)
{
    for (const Side side : {Linked, Left, Right}) {
        if (isShown(side) && part(side).fader) {
            engine().take(part(side).gainRow, gainDb);
        }
    }
    for (const RowId row : mSentGains) {
        engine().take(row, partOf(Left).fader.get());
    }
}

void RouteStrip::setMUTE(bool on)
{
    for (const Side side : {Linked, Left, Right}) {
        if (isShown(side) && part(side).mute) {
            engine().take(part(side).muteRow, on);
            engine().take(part(side).sentMute, on ? 1 : 0);
        }
    }
}

int RouteStrip::meterGain(Side side) const
{
    const Part& level = partOf(side);
    return isMuted(level) ? kSilenceDb : static_cast<int>(level.fader.get());
}

void RouteStrip::setVolumeMeterLeft(int tenthsOfDb)
{
    if (mLinked) {
        mMeterLeft->setVolumeMeter(tenthsOfDb, meterGain(Left));
    } else {
        mMeterPair->setVolumeMeterLeft(tenthsOfDb, meterGain(Left));
    }
}

void RouteStrip::setVolumeMeterRight(int tenthsOfDb)
{
    if (mLinked) {
        mMeterRight->setVolumeMeter(tenthsOfDb, meterGain(Right));
    } else {
        mMeterPair->setVolumeMeterRight(tenthsOfDb, meterGain(Right));
    }
}

DeviceSetter RouteStrip::deviceSetter(QStringView attribute)
{
    if (attribute == u"GAIN") {
        return [this](const QVariant& gainDb) { setGAIN(gainDb.toFloat()); };
    }
    if (attribute == u"MUTE") {
        return [this](const QVariant& on) { setMUTE(on.toBool()); };
    }
    if (attribute == u"MeterLeft") {
        return [this](const QVariant& level) { setVolumeMeterLeft(level.toInt()); };
    }
    if (attribute == u"MeterRight") {
        return [this](const QVariant& level) { setVolumeMeterRight(level.toInt()); };
    }
    return PlainStrip::deviceSetter(attribute);
}

} // namespace quillon
