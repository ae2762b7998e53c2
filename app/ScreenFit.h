#pragma once

#include <QSize>

namespace quillon
{

/// The factor itself where a console of that factor fits the available size (pixels), else the largest step of 50 to 200 %
/// that fits, 50 % where none does. Never more than the factor.
float screenFitFactor(float factor, const QSize& available);

/// Lowers the stored "ScaleFactor" to what fits the primary screen, when "FollowSystemScale" is on. What was chosen comes back with
/// a screen that has room for it, or when that setting is off, unless another factor was chosen since. True when the factor
/// changed. Before the first window is made, after AppSettingsSubject::init(). GUI thread.
bool applyScreenFit();

} // namespace quillon
