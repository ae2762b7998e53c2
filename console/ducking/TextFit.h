#pragma once

#include <QFont>
#include <QWidget>
#include <span>

namespace quillon
{

/// A widget's text and the space that it has.
struct FitText {
    QWidget* widget;
    QString text;
    QSize space;
};

/// Gives all of them the face at one size: the largest at which each text fits its space.
void fitTogether(const QFont& face, std::span<const FitText> texts);

} // namespace quillon
