#include "console/effect/R47_PrivateWidget3.h"

#include "controls/DialS1M1.h"
#include "controls/DialS1M5.h"
#include "controls/VSliderS1M1.h"
#include "controls/VolumeMeterS1M7.h"
#include "strips/ButtonPanel.h"
#include "strips/CaptionLabel.h"
#include "strips/GainScale.h"
#include "strips/PanelRows.h"
#include "strips/SectionFrame.h"

using namespace Qt::StringLiterals;
using quillon::EffectMode;
using quillon::PanelButton;
using quillon::PanelShape;
using quillon::Place;
using quillon::PlateStyle;
using quillon::PlateTone;
using quillon::StripText;
using quillon::StripValue;
using quillon::ValueForm;

namespace
{

// The two processors see to their types themselves.
constexpr quillon::EffectShape kShape{
    .minimum = {352, 220}, .title = {"Effects", "效果器"}, .typeKey = "", .levelKey = "", .modes = {}};

constexpr EffectMode kNoiseTypes[]{{"Bypass", "NoiseReductionBypass", 1},
                                   {"NC1", "NoiseReductionNC1", 15},
                                   {"NC2", "NoiseReductionNC2", 30},
                                   {"NC3", "NoiseReductionNC3", 45}};
constexpr EffectMode kReverbTypes[]{
    {"Bypass", "ReverbBypass", 1}, {"STUDIO", "ReverbStudio", 1}, {"LIVE", "ReverbLive", 1}, {"HALL", "ReverbHall", 1}};
constexpr quillon::TypedLevelShape kNoise{"NoiseReductionType", "NoiseReduction", kNoiseTypes};
constexpr quillon::TypedLevelShape kReverb{"ReverbType", "Room", kReverbTypes};

constexpr PanelButton choice(const char* name, const char* chinese)
{
    return {.name = name, .english = name, .chinese = chinese, .exclusive = true};
}
constexpr PanelButton kBypass{
    .name = "Bypass", .english = "Bypass", .chinese = "旁通", .tone = PlateTone::Amber, .exclusive = true};
constexpr PanelButton kNoiseButtons[]{kBypass, choice("NC1", "NC1"), choice("NC2", "NC2"), choice("NC3", "NC3")};
constexpr PanelButton kReverbButtons[]{kBypass, choice("STUDIO", "录音棚"), choice("LIVE", "现场"), choice("HALL", "大厅")};
constexpr PanelButton kMuteButtons[]{{.name = "MUTE", .english = "MUTE", .chinese = "静音", .tone = PlateTone::Red}};
constexpr PanelShape kNoisePanel{"FXNoise", PlateStyle::Shaded, false, 100, 44, 2, kNoiseButtons};
constexpr PanelShape kReverbPanel{"FXReverb", PlateStyle::Shaded, false, 152, 21, 4, kReverbButtons};
constexpr PanelShape kMutePanel{"FXMute", PlateStyle::Shaded, false, 56, 18, 1, kMuteButtons};

struct Fader {
    const char* attribute;
    StripText caption;
    StripText meaning;
};
constexpr Fader kFaders[]{{"Input1Level", {"IN 1", "IN 1"}, {"IN 1 level", "IN 1 电平"}},
                          {"Input2Level", {"IN 2", "IN 2"}, {"IN 2 level", "IN 2 电平"}},
                          {"AuxLevel", {"AUX", "AUX"}, {"AUX level", "AUX 电平"}},
                          {"BluetoothLevel", {"BT", "蓝牙"}, {"BT level", "蓝牙电平"}},
                          {"OtgLevel", {"OTG", "OTG"}, {"OTG level", "OTG 电平"}}};
constexpr float kFaderStart = 1.2F;
constexpr float kFaderPitch = 6.6F;

constexpr StripText kNoiseTitle{"Noise Reduction", "降噪"};
constexpr StripText kReverbTitle{"Reverb", "混响"};
constexpr StripText kNoiseLevel{"Noise Reduction Level", "降噪量"};
constexpr StripText kMix{"Dry/Wet", "干湿比"};
constexpr StripText kRoom{"Room Size", "空间大小"};
constexpr StripText kDecay{"Decay Rate", "混响衰减率"};

struct Caption {
    const char* objectName;
    Place place;
    StripText text;
};
constexpr Caption kCaptions[]{
    {"labelNoiseReduction", {36.0F, 11.5F, 28.0F, 6.0F}, kNoiseTitle},
    {"labelNoiseLevel", {65.4F, 11.5F, 13.2F, 6.0F}, {"Level", "降噪量"}},
    {"labelReverb", {36.0F, 42.8F, 42.6F, 6.0F}, kReverbTitle},
    {"labelRoomSize", {51.8F, 61.5F, 13.2F, 5.5F}, kRoom},
    {"labelDecayRate", {65.4F, 61.5F, 13.2F, 5.5F}, kDecay},
    {"labelDry", {36.0F, 90.3F, 7.4F, 5.4F}, {"Dry", "干声"}},
    {"labelWet", {43.8F, 90.3F, 7.4F, 5.4F}, {"Wet", "混响"}},
    {"labelReverbRoomSmall", {51.4F, 90.3F, 6.9F, 5.4F}, {"Small", "小"}},
    {"labelReverbRoomLarge", {58.5F, 90.3F, 6.9F, 5.4F}, {"Large", "大"}},
    {"labelReverbDecayMin", {65.4F, 90.3F, 6.5F, 5.4F}, {"Min", "最小"}},
    {"labelReverbDecayMax", {72.1F, 90.3F, 6.5F, 5.4F}, {"Max", "最大"}},
    {"labelFxIn", {80.7F, 10.5F, 8.7F, 5.5F}, {"FX IN", "效果输入"}},
    {"labelFxOut", {90.3F, 10.5F, 8.7F, 5.5F}, {"FX OUT", "效果输出"}},
};
constexpr Place kFrames[]{{34.9F, 10.5F, 44.9F, 29.8F}, {34.9F, 41.8F, 44.9F, 56.0F}};

} // namespace

R47_PrivateWidget3::R47_PrivateWidget3(const QString& objectName, QWidget* parent) : EffectBase(kShape, objectName, parent)
{
    for (const Place& place : kFrames) {
        body().adopt(new quillon::SectionFrame(this), "frameSection", place);
    }
    for (const Caption& caption : kCaptions) {
        addCaption(caption.objectName, caption.place, caption.text);
    }
    addFaders();
    addNoise();
    addReverb();
    addReturn();
    declareLoad();
}

void R47_PrivateWidget3::addFaders()
{
    float x = kFaderStart;
    for (const Fader& row : kFaders) {
        const QString attribute = QString::fromLatin1(row.attribute);
        auto* fader = new VSliderS1M1(this);
        fader->setRange(quillon::scalePlayback.minimum, quillon::scalePlayback.maximum);
        fader->setMinusInfinity(true);
        fader->setRatio(7, 2, 91);
        body().adopt(quillon::ValuePort{.widget = fader, .setFont = [fader](const QFont& font) { fader->setFont(font); }},
                     row.attribute, {x + 0.4F, 10.5F, kFaderPitch - 0.8F, 80.5F}, row.meaning);
        addCaption("labelFader", {x, 91.5F, kFaderPitch, 5.8F}, row.caption);
        const auto id = engine().add({.key = attribute,
                                      .form = ValueForm::Integer,
                                      .initial = [] { return 0; },
                                      .read = [fader] { return fader->value(); },
                                      .show = [fader](const StripValue& value) { fader->setValue(std::get<int>(value)); },
                                      .sends = {attribute}});
        connect(fader, &VSliderS1M1::valueChanged, this, [this, id] { engine().changed(id); });
        x += kFaderPitch;
    }
}

void R47_PrivateWidget3::addNoise()
{
    quillon::ButtonPanel* types = addButtons(kNoisePanel, "widgetNoiseTypes", {36.0F, 18.5F, 28.0F, 20.0F}, kNoiseTitle);
    auto* level = addDial(new DialS1M5(this), "dialNoiseReduction", {65.4F, 18.0F, 13.2F, 21.5F}, kNoiseLevel);
    level->setRange(1, 70);
    mProcessors[0] = std::make_unique<quillon::TypedLevel>(kNoise, engine(), types, level, QList<QWidget*>{level});
}

void R47_PrivateWidget3::addReverb()
{
    quillon::ButtonPanel* types = addButtons(kReverbPanel, "widgetReverbTypes", {36.0F, 49.8F, 42.6F, 9.6F}, kReverbTitle);
    auto* mix = addDial(new DialS1M1(this), "dialDryWet", {35.6F, 61.5F, 16.0F, 28.5F}, kMix);
    mix->setRange(0, 100);
    auto* room = addDial(new DialS1M5(this), "dialRoom", {51.8F, 67.3F, 13.2F, 23.0F}, kRoom);
    room->setRange(1, 6);
    auto* decay = addDial(new DialS1M5(this), "dialDecay", {65.4F, 67.3F, 13.2F, 23.0F}, kDecay);
    decay->setRange(0, 10);
    declareDial(mix, u"DryWet"_s, 30);
    mProcessors[1] = std::make_unique<quillon::TypedLevel>(kReverb, engine(), types, room, QList<QWidget*>{mix, room, decay});
    declareDial(decay, u"Decay"_s, 0);
}

void R47_PrivateWidget3::addReturn()
{
    mMeter = new VolumeMeterS1M7(this);
    mMeter->setWidthRatio(8, 20, 30); // each bar under its caption
    body().adopt(quillon::meterPort(mMeter), "widgetMeter", {81.0F, 16.5F, 17.8F, 72.0F},
                 {"FX IN and FX OUT", "效果输入和效果输出"});
    quillon::ButtonPanel* buttons = addButtons(kMutePanel, "widgetMute", {81.9F, 90.0F, 16.0F, 7.8F}, {"FX", "效果"});
    mMute = quillon::panelPort(buttons);
    quillon::StripRow mute = quillon::switchRow(mMute, u"MUTE"_s);
    mute.sends = {u"MuteFX"_s};
    const auto id = engine().add(std::move(mute));
    connect(buttons, &quillon::ButtonPanel::stateChanged, this, [this, id] { engine().changed(id); });
}

quillon::ButtonPanel* R47_PrivateWidget3::addButtons(const PanelShape& shape, const char* objectName, const Place& place,
                                                     const StripText& meaning)
{
    auto* panel = new quillon::ButtonPanel(shape, this);
    quillon::PanelPort port = quillon::panelPort(panel);
    // Both processors have a bypass: a button is called by more than its caption.
    port.setAccessibleName = [this, panel, meaning](const QString& name) {
        panel->setAccessibleName(name + u' ' + meaning.in(body().isChinese()));
    };
    body().adopt(port, objectName, place);
    return panel;
}

void R47_PrivateWidget3::setFxInMeter(int tenthsOfDb)
{
    mMeter->setVolumeMeterLeft(tenthsOfDb);
}

void R47_PrivateWidget3::setFxOutMeter(int tenthsOfDb)
{
    mMeter->setVolumeMeterRight(tenthsOfDb);
}

quillon::DeviceSetter R47_PrivateWidget3::deviceSetter(QStringView attribute)
{
    if (attribute == u"MeterIn") {
        return [this](const QVariant& level) { setFxInMeter(level.toInt()); };
    }
    if (attribute == u"MeterOut") {
        return [this](const QVariant& level) { setFxOutMeter(level.toInt()); };
    }
    return EffectBase::deviceSetter(attribute);
}
