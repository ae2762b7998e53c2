#include "strips/effect/EffectS1M2.h"

#include "controls/DialS1M3.h"
#include "controls/PushButtons.h"
#include "strips/CaptionLabel.h"

using namespace Qt::StringLiterals;
using quillon::StripValue;

namespace
{

constexpr QSize kLarge{190, 220};
constexpr QSize kSmall{110, 220};
constexpr quillon::EffectShape kShape{
    .minimum = kLarge, .title = {"Reverb", "混响"}, .typeKey = "ReverbType", .levelKey = "GAIN", .modes = {}};

struct Caption {
    const char* objectName;
    quillon::Place place;
    quillon::StripText text;
};
constexpr Caption kCaptions[]{{"labelDryWet", {60.0F, 12.0F, 37.0F, 6.0F}, {"Dry/Wet", "干湿比"}},
                              {"labelDry", {60.0F, 44.0F, 14.0F, 5.5F}, {"Dry", "干声"}},
                              {"labelWet", {83.0F, 44.0F, 14.0F, 5.5F}, {"Wet", "混响"}},
                              {"labelDecay", {60.0F, 55.0F, 37.0F, 6.0F}, {"Decay Rate", "混响衰减率"}},
                              {"labelDecayMin", {60.0F, 87.0F, 14.0F, 5.5F}, {"Min", "最小"}},
                              {"labelDecayMax", {83.0F, 87.0F, 14.0F, 5.5F}, {"Max", "最大"}}};

} // namespace

EffectS1M2::EffectS1M2(const QString& objectName, QWidget* parent) : ChannelEffect(kShape, objectName, parent)
{
    addButtons(new PushButtonS1M5(this), {4.0F, 11.0F, 92.0F, 0.0F});
    declareSwitch(u"NC"_s);
    declareChoice(u"ReverbChannel"_s, {u"IN1"_s, u"IN2"_s, u"IN12"_s});
    declareChoice(u"ReverbType"_s, {u"OFF"_s, u"STU:STUDIO"_s, u"LIVE"_s, u"HALL"_s});
    addReverb("DryWet", "dialDryWet", {65.0F, 20.0F, 27.0F, 23.5F}, kCaptions[0].text, 100, 30);
    addReverb("Decay", "dialDecay", {65.0F, 63.0F, 27.0F, 23.5F}, kCaptions[3].text, 18, 0);
    addLevel({8.0F, 55.0F, 30.0F, 30.0F}, {46.0F, 58.0F, 44.0F, 23.0F}, {34.0F, 88.0F, 32.0F, 0.0F});
    for (const Caption& caption : kCaptions) {
        addCaption(caption.objectName, caption.place, caption.text);
    }
    mModeRow = engine().add({.key = u"NavigationDisplayMode"_s,
                             .form = quillon::ValueForm::Text,
                             .initial = [] { return u"Large"_s; },
                             .read = [this] { return mMode; },
                             .show = [this](const StripValue& value) { showDisplayMode(std::get<QString>(value)); }});
    showDisplayMode(u"Large"_s);
}

void EffectS1M2::addReverb(const char* key, const char* childName, const quillon::Place& place, const quillon::StripText& meaning,
                           int maximum, int initial)
{
    auto* dial = addDial(new DialS1M3(this), childName, place, meaning);
    dial->setRange(0, static_cast<float>(maximum));
    dial->setValue(static_cast<float>(initial));
    declareDial(dial, QString::fromLatin1(key), initial);
}

void EffectS1M2::setNavigationDisplayMode(const QString& mode)
{
    showDisplayMode(mode);
    if (engine().isLoaded()) {
        engine().changed(mModeRow);
    }
}

void EffectS1M2::showDisplayMode(const QString& mode)
{
    if (mode == mMode || (mode != "Small"_L1 && mode != "Large"_L1)) {
        return;
    }
    mMode = mode;
    const bool large = mode == "Large"_L1;
    for (const char* name : {"dialDryWet", "dialDecay"}) {
        findChild<QWidget*>(QLatin1StringView(name))->setVisible(large);
    }
    for (const Caption& caption : kCaptions) {
        findChild<QWidget*>(QLatin1StringView(caption.objectName))->setVisible(large);
    }
    setColumnShare(large ? static_cast<float>(kSmall.width()) / kLarge.width() : 1.0F);
    setMinimumSize(large ? kLarge : kSmall);
    body().layout();
    raise(u"Resize"_s, u"1"_s); // the field gives it the width that it has now
}
