#include "strips/effect/EffectS1M3.h"

#include "controls/DialS1M5.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr quillon::EffectMode kModes[]{
    {"NC1", "NoiseReductionNC1", 15}, {"NC2", "NoiseReductionNC2", 30}, {"Bypass", "NoiseReductionBypass", 1}};
constexpr quillon::EffectShape kShape{.minimum = {90, 220},
                                      .title = {"Noise Reduction", "降噪"},
                                      .typeKey = "NoiseReductionType",
                                      .levelKey = "NoiseReduction",
                                      .modes = kModes};

constexpr quillon::PanelButton kTypes[]{{.name = "NC1", .english = "NC1", .chinese = "NC1"},
                                        {.name = "NC2", .english = "NC2", .chinese = "NC2"}};
constexpr quillon::PanelShape kTypePanel{"NC", quillon::PlateStyle::Shaded, false, 78, 18, 2, kTypes};
constexpr const char* kTypeNames[]{"pushButtonNC1", "pushButtonNC2"};
constexpr quillon::PanelButton kBypass[]{
    {.name = "Bypass", .english = "BYPASS", .chinese = "旁通", .tone = quillon::PlateTone::Amber}};
constexpr quillon::PanelShape kBypassPanel{"NCBypass", quillon::PlateStyle::Shaded, false, 78, 18, 1, kBypass};
constexpr const char* kBypassNames[]{"pushButtonBypassNoise"};
constexpr quillon::StripText kLevel{"Level", "降噪量"};

} // namespace

EffectS1M3::EffectS1M3(const QString& objectName, QWidget* parent) : EffectBase(kShape, objectName, parent)
{
    body().head().setFieldName(u"lineEditNoiseReduction"_s);
    addModes(kTypePanel, "ncWidget", {7.0F, 13.0F, 86.0F, 0.0F}, kTypeNames);
    addCaption("labelNoiseClass", {10.0F, 34.0F, 80.0F, 6.0F}, kLevel);
    auto* dial = addDial(new DialS1M5(this), "dialNoiseReduction", {14.0F, 42.0F, 72.0F, 30.0F}, kLevel);
    dial->setRange(1, 70);
    setLevelDial(dial);
    addModes(kBypassPanel, "ncBypassWidget", {7.0F, 84.0F, 86.0F, 0.0F}, kBypassNames);
    declareModes([this](std::size_t i) {
        if (i == mode()) {
            mSent[i] = level(i);
        }
        return mSent[i];
    });
    const auto forget = [this] { mSent.fill(std::get<int>(quillon::unsent(quillon::ValueForm::Integer))); };
    forget();
    declareLoad(forget);
}

void EffectS1M3::raise(const QString& attribute, const QString& value)
{
    EffectBase::raise(attribute, value);
    if (attribute == QLatin1StringView(kShape.typeKey)) {
        // The device applies a level to the mode that it is in: a new mode always brings its own.
        EffectBase::raise(QString::fromLatin1(kShape.levelKey), QString::number(level(mode())));
    }
}
