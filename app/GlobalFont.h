#pragma once

#include "app/FontMeasures.h"

#include <QFont>
#include <QRect>
#include <QStringList>

/// The one font of the application, and the helpers that fit a text into a space. GUI thread.
///
/// Every fit grows a size from 5 while the measure is within the limit and returns the last size that fitted: 4 to 60.
/// Measures are remembered per face and text, so that a fit in a resize costs a walk over a small table.
class GlobalFont
{
public:
    static GlobalFont& instance();

    /// Adds the faces and takes the first one's family, weight 700, 16 pixels. False when none could be added.
    bool load(const QStringList& paths);
    /// Adds faces beside the one in use. The id of the first one added, -1 when there was none.
    int addFaces(const QStringList& paths);
    QFont font() const;

    QString longerText(const QString& a, const QString& b) const;
    int pixelSizeForHeight(const QFont& font, int height) const;
    int pixelSizeForRect(const QFont& font, const QString& text, const QRect& rect) const;
    int pointSizeForHeight(const QFont& font, int height) const;
    int pointSizeForWidth(const QFont& font, const QString& text, int width) const;
    int pointSizeForRect(const QFont& font, const QString& text, const QRect& rect) const;
    int textWidthForHeight(const QFont& font, const QString& text, int height) const;
    bool fitsWidth(const QFont& font, const QString& text, int width) const;

private:
    GlobalFont() = default;

    QFont mFont;
    mutable quillon::FontMeasures mMeasures;
};

namespace quillon
{

/// The resource paths of the application's faces, in the order in which they are loaded.
QStringList applicationFontPaths();

} // namespace quillon
