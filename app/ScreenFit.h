#pragma once

#include <QSize>

namespace quillon
{

/// The factor itself where a console of that factor fits the available size (pixels), else the largest step of 50 to 200 %
/// that fits, 50 % where none does. Never more than the factor.
float screenFitFactor(float factor, const QSize& available);

/// Lowers the stored "ScaleFactor" to what fits the primary screen, when "FollowSystemScale" is on. What was lowered comes back
/// with a screen that has room for it. True when the factor changed. Before the first window is made, after
/// AppSettingsSubject::init(). GUI thread.
bool applyScreenFit();

/// The stored factor is the user's own from now on, and none comes back in its place. GUI thread.
void keepScaleFactor();

} // namespace quillon
