#include "strips/effect/EffectS1M4.h"

#include "controls/DialS1M1.h"
#include "controls/DialS1M5.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr quillon::EffectMode kModes[]{
    {"STUDIO", "ReverbStudio", 1}, {"LIVE", "ReverbLive", 1}, {"HALL", "ReverbHall", 1}, {"Bypass", "ReverbBypass", 1}};
constexpr quillon::EffectShape kShape{
    .minimum = {150, 220}, .title = {"Reverb", "混响"}, .typeKey = "ReverbType", .levelKey = "Room", .modes = kModes};

constexpr quillon::PanelButton kTypes[]{
    {.name = "STUDIO", .english = "STUDIO", .chinese = "录音棚"},
    {.name = "LIVE", .english = "LIVE", .chinese = "现场"},
    {.name = "HALL", .english = "HALL", .chinese = "大厅"},
    {.name = "Bypass", .english = "BYPASS", .chinese = "旁通", .tone = quillon::PlateTone::Amber, .span = 3}};
constexpr quillon::PanelShape kTypePanel{"Reverb", quillon::PlateStyle::Shaded, false, 138, 42, 3, kTypes};
constexpr const char* kTypeNames[]{"pushButtonReverbStudio", "pushButtonReverbLive", "pushButtonReverbHall",
                                   "pushButtonBypassReverb"};
constexpr quillon::StripText kMix{"Dry/Wet", "干湿比"};
constexpr quillon::StripText kRoom{"Room Size", "空间大小"};
constexpr quillon::StripText kDecay{"Decay Rate", "混响衰减率"};

struct Caption {
    const char* objectName;
    quillon::Place place;
    quillon::StripText text;
};
constexpr Caption kCaptions[]{
    {"labelDry", {8.0F, 55.0F, 20.0F, 5.5F}, {"Dry", "干声"}},
    {"labelWet", {72.0F, 55.0F, 20.0F, 5.5F}, {"Wet", "混响"}},
    {"labelRoomSize", {5.0F, 64.0F, 42.0F, 5.5F}, kRoom},
    {"labelReverbRoomSmall", {4.0F, 91.0F, 21.0F, 5.0F}, {"Small", "小"}},
    {"labelReverbRoomLarge", {27.0F, 91.0F, 21.0F, 5.0F}, {"Large", "大"}},
    {"labelDecayRate", {53.0F, 64.0F, 42.0F, 5.5F}, kDecay},
    {"labelReverbDecayMin", {52.0F, 91.0F, 21.0F, 5.0F}, {"Min", "最小"}},
    {"labelReverbDecayMax", {75.0F, 91.0F, 21.0F, 5.0F}, {"Max", "最大"}},
};

} // namespace

EffectS1M4::EffectS1M4(const QString& objectName, QWidget* parent) : EffectBase(kShape, objectName, parent)
{
    body().head().setFieldName(u"lineEditReverb"_s);
    addModes(kTypePanel, "rbWidget", {4.0F, 11.0F, 92.0F, 0.0F}, kTypeNames);
    auto* mix = addDial(new DialS1M1(this), "dialDryWet", {30.0F, 33.0F, 40.0F, 27.0F}, kMix);
    mix->setRange(0, 100);
    auto* room = addDial(new DialS1M5(this), "dialRoom", {10.0F, 70.0F, 32.0F, 21.0F}, kRoom);
    room->setRange(1, 6);
    setLevelDial(room);
    auto* decay = addDial(new DialS1M5(this), "dialDecay", {58.0F, 70.0F, 32.0F, 21.0F}, kDecay);
    decay->setRange(0, 18);
    for (const Caption& caption : kCaptions) {
        addCaption(caption.objectName, caption.place, caption.text);
    }
    // In this order they are sent. The device has one room size: a mode that brings another one sends it.
    declareDial(mix, u"DryWet"_s, 30);
    declareModes();
    engine().add({.form = quillon::ValueForm::Integer,
                  .read = [this] { return level(mode()); },
                  .sends = {QString::fromLatin1(kShape.levelKey)}});
    declareDial(decay, u"Decay"_s, 0);
    declareLoad();
}
