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

void applyScreenFit()
{
    QSettings settings;
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr || !settings.value("FollowSystemScale").toBool()) {
        return;
    }
    const float stored = settings.value("ScaleFactor").toFloat();
    const float fitting = screenFitFactor(stored, screen->availableSize());
    if (fitting < stored) {
        settings.setValue("ScaleFactor", QString::number(static_cast<double>(fitting)));
    }
}

} // namespace quillon
