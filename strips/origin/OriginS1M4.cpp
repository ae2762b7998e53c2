#include "strips/origin/OriginS1M4.h"

#include "controls/DialS1M1.h"
#include "strips/ButtonPanel.h"
#include "strips/CaptionLabel.h"
#include "strips/PanelRows.h"
#include "strips/SectionFrame.h"

#include <cmath>
#include <span>

using namespace Qt::StringLiterals;
using quillon::StripValue;
using quillon::ValueForm;

namespace
{

constexpr quillon::PanelButton choice(const char* name, const char* chinese)
{
    return {.name = name, .english = name, .chinese = chinese, .exclusive = true};
}
constexpr quillon::PanelButton kNoiseTypes[]{choice("OFF", "关"), choice("NC1", "NC1"), choice("NC2", "NC2"), choice("NC3", "NC3")};
constexpr quillon::PanelButton kReverbTypes[]{choice("OFF", "关"), choice("STUDIO", "录音棚"), choice("LIVE", "现场"),
                                              choice("HALL", "大厅")};
constexpr quillon::PanelShape kNoisePanel{"NCType", quillon::PlateStyle::Flat, false, 126, 38, 2, kNoiseTypes};
constexpr quillon::PanelShape kReverbPanel{"ReverbType", quillon::PlateStyle::Flat, false, 126, 38, 2, kReverbTypes};
constexpr int kMixDefault = 30;

/// The console says "OFF" where the device knows a bypass.
QString toDevice(const QString& type)
{
    return type == "OFF"_L1 ? u"Bypass"_s : type;
}

struct Sends {
    const char* strip;
    std::span<const QLatin1StringView> gains; // in each mix
    const char* on;                           // while an effect is on
    const char* off;
};
constexpr QLatin1StringView kAllGains[]{"GainMLCL"_L1, "GainMLCR"_L1, "GainMRCL"_L1, "GainMRCR"_L1};
constexpr QLatin1StringView kStraightGains[]{"GainMLCL"_L1, "GainMRCR"_L1};
// Each microphone feeds both sides at half, the effect return is a pair at unity.
constexpr Sends kRouting[]{{"Mixer_IN12", kAllGains, "0", "16777216"}, {"Mixer_FX", kStraightGains, "33554432", "0"}};

} // namespace

OriginS1M4::OriginS1M4(const QString& objectName, QWidget* parent)
    : OriginBase({150, 220}, objectName, parent), mNoise(addChoice(kNoisePanel, "NCType", {8.0F, 19.0F, 84.0F, 0.0F})),
      mReverb(addChoice(kReverbPanel, "ReverbType", {8.0F, 50.0F, 84.0F, 0.0F}))
{
    for (const quillon::Place& place : {quillon::Place{4.0F, 10.5F, 92.0F, 28.5F}, {4.0F, 41.5F, 92.0F, 56.0F}}) {
        auto* frame = new quillon::SectionFrame(this);
        body().adopt(frame, "frameSection", place);
        frame->stackUnder(mNoise.widget);
    }
    addCaption("Noise", {8.0F, 12.0F, 84.0F, 6.0F}, {"Noise Reduction", "降噪"});
    addCaption("Reverb", {8.0F, 43.0F, 84.0F, 6.0F}, {"Reverb", "混响"});
    auto* dial = new DialS1M1(this);
    body().adopt(quillon::ValuePort{.widget = dial, .setFont = [dial](const QFont& font) { dial->setFont(font); }}, "DialReverb",
                 {30.0F, 70.0F, 40.0F, 26.0F}, {"Dry/Wet", "干湿比"});
    dial->setRange(0, 100);
    dial->setDefault(kMixDefault);
    addCaption("labelDry", {8.0F, 90.0F, 20.0F, 5.5F}, {"Dry", "干声"});
    addCaption("labelWet", {72.0F, 90.0F, 20.0F, 5.5F}, {"Wet", "混响"});

    const auto mix = engine().add({.key = u"DryWet"_s,
                                   .form = ValueForm::Decimal,
                                   .initial = [] { return static_cast<float>(kMixDefault); },
                                   .read = [dial] { return dial->value(); },
                                   .show = [dial](const StripValue& value) { dial->setValue(std::round(std::get<float>(value))); },
                                   .sends = {u"DryWet"_s}});
    connect(dial, &DialS1M1::valueChanged, this, [this, mix] { engine().changed(mix); });
    declareChoice(mNoise, kNoisePanel);
    declareChoice(mReverb, kReverbPanel);
    engine().add({.form = ValueForm::Integer, .read = [this] { return mTypesSent; }, .sends = {u"Routing"_s}});
}

quillon::PanelPort OriginS1M4::addChoice(const quillon::PanelShape& shape, const char* childName, const quillon::Place& place)
{
    quillon::PanelPort port = quillon::panelPort(new quillon::ButtonPanel(shape, this));
    body().adopt(port, childName, place);
    port.set(u"OFF"_s, true, false);
    return port;
}

void OriginS1M4::declareChoice(const quillon::PanelPort& panel, const quillon::PanelShape& shape)
{
    QStringList names;
    for (const quillon::PanelButton& button : shape.buttons) {
        names += QString::fromLatin1(button.name);
    }
    const auto row = engine().add(quillon::choiceRow(panel, QString::fromLatin1(shape.member), names));
    connect(static_cast<quillon::ButtonPanel*>(panel.widget), &quillon::ButtonPanel::stateChanged, this,
            [this, row] { engine().changed(row); });
}

void OriginS1M4::raise(const QString& attribute, const QString& value)
{
    const bool isEcho = attribute.startsWith("Save_"_L1);
    const QString name = isEcho ? attribute.sliced(5) : attribute;
    if (name == "NCType"_L1) {
        emit attributeChanged(u"Effect_NC"_s, attribute, value);
        if (!isEcho) {
            // The name under which the device takes it.
            emit attributeChanged(u"Effect_NC"_s, u"NoiseReductionType"_s, toDevice(value));
            ++mTypesSent;
        }
    } else if (name == "ReverbType"_L1) {
        emit attributeChanged(u"Effect_Reverb"_s, attribute, isEcho ? value : toDevice(value));
        mTypesSent += isEcho ? 0 : 1;
    } else if (name == "DryWet"_L1) {
        emit attributeChanged(u"Effect_Reverb"_s, attribute, value);
    } else if (name == "Routing"_L1) {
        route();
    } else {
        OriginBase::raise(attribute, value);
    }
}

void OriginS1M4::route()
{
    const bool off = isOff();
    for (const Sends& sends : kRouting) {
        for (const QLatin1StringView mix : {"MixA_"_L1, "MixB_"_L1, "MixC_"_L1}) {
            for (const QLatin1StringView gain : sends.gains) {
                emit attributeChanged(QString::fromLatin1(sends.strip), mix + gain,
                                      QString::fromLatin1(off ? sends.off : sends.on));
            }
        }
    }
}
