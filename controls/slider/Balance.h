#pragma once

#include <QString>

namespace quillon
{

/// "C" in the middle of the range, "L" and "R" at its ends, and between them the letter with the distance from the middle.
QString balanceText(float value, float min, float max);

/// The value that such a text stands for, within the range. A text of another kind counts as the maximum.
float balanceFromText(const QString& text, float min, float max);

} // namespace quillon
