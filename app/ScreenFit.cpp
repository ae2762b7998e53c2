#include "app/ScreenFit.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>

#include <array>

namespace quillon
{

namespace
{

// The console at factor 1, in pixels.
constexpr float BaseWidth = 1100;
constexpr float BaseHeight = 645;
constexpr auto kChosenKey = "ScreenFit/Chosen";
constexpr auto kLoweredKey = "ScreenFit/Lowered";
constexpr std::array<float, 7> steps{0.5F, 0.75F, 1.F, 1.25F, 1.5F, 1.75F, 2.F};

bool fits(float factor, const QSize& available)
{
    return factor * BaseWidth <= static_cast<float>(available.width()) &&
           factor * BaseHeight <= static_cast<float>(available.height());
}

} // namespace

float screenFitFactor(float factor, const QSize& available)
{
    if (fits(factor, available) || factor <= steps.front()) {
        return factor;
    }
    float result = steps.front();
    for (const float step : steps) {
        if (step < factor && fits(step, available)) {
            result = step;
        }
    }
    return result;
}

bool applyScreenFit()
{
    QSettings settings;
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return false;
    }
    const QString stored = settings.value("ScaleFactor").toString();
    // What was lowered at an earlier start, and not chosen anew since.
    const bool wasLowered = settings.contains(kChosenKey) && stored == settings.value(kLoweredKey).toString();
    const QString chosen = wasLowered ? settings.value(kChosenKey).toString() : stored;
    const float fitting = settings.value("FollowSystemScale").toBool() ? screenFitFactor(chosen.toFloat(), screen->availableSize())
                                                                       : chosen.toFloat();
    const QString factor = fitting < chosen.toFloat() ? QString::number(static_cast<double>(fitting)) : chosen;
    if (factor == chosen) {
        settings.remove(kChosenKey);
        settings.remove(kLoweredKey);
    } else {
        settings.setValue(kChosenKey, chosen);
        settings.setValue(kLoweredKey, factor);
    }
    if (factor == stored) {
        return false;
    }
    settings.setValue("ScaleFactor", factor);
    return true;
}

} // namespace quillon
