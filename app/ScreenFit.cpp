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
constexpr auto kChosenKey = "ChosenScaleFactor";
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

void keepScaleFactor()
{
    if (QSettings settings; settings.contains(kChosenKey)) {
        settings.remove(kChosenKey);
    }
}

bool applyScreenFit()
{
    QSettings settings;
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return false;
    }
    if (!settings.value("FollowSystemScale").toBool()) {
        keepScaleFactor();
        return false;
    }
    const QString stored = settings.value("ScaleFactor").toString();
    const QString chosen = settings.value(kChosenKey, stored).toString();
    const float fitting = screenFitFactor(chosen.toFloat(), screen->availableSize());
    const bool tooLarge = fitting < chosen.toFloat();
    const QString factor = tooLarge ? QString::number(static_cast<double>(fitting)) : chosen;
    if (tooLarge) {
        settings.setValue(kChosenKey, chosen);
    } else {
        keepScaleFactor();
    }
    if (factor == stored) {
        return false;
    }
    settings.setValue("ScaleFactor", factor);
    return true;
}

} // namespace quillon
