#pragma once

#include "controls/meter/MeterPaint.h"

#include <QPixmap>
#include <memory>
#include <vector>

namespace quillon
{

/// The pictures from which a meter is put together, so that a new level costs a few block copies instead of rounded, shaded
/// and lettered painting. All meters of one look and size share one skin; it lives as long as one of them holds it.
///
/// The copies give the very pixels that paintMeter() gives. Per skin at 45 by 220 pixels: some 150 kB. GUI thread.
class MeterSkin
{
public:
    /// pixelRatio: device pixels per pixel, whole.
    static std::shared_ptr<MeterSkin> shared(const MeterScene& scene, const MeterLayout& layout, int pixelRatio);

    bool fits(const MeterScene& scene, int pixelRatio) const { return mPixelRatio == pixelRatio && mScene == scene; }

    /// Draws what lies in area.
    void paint(QPainter& painter, const QRect& area, const MeterMoments& moments);

    /// How far below its top a bar may differ from one that reaches higher.
    static int capHeight(const MeterShape& shape, const QRect& bar);

private:
    MeterSkin(const MeterScene& scene, const MeterLayout& layout, int pixelRatio);

    QPixmap blank(QSize size) const;
    void copy(QPainter& painter, const QRect& area, const QPixmap& picture, QPoint origin) const;
    const QPixmap& cap(qsizetype lane, int levelDb);
    const QPixmap& text(int holdDb);

    MeterScene mScene;
    MeterLayout mLayout;
    int mPixelRatio;
    QPixmap mDark; // levels at the floor, lamps off, no numbers
    QPixmap mLit;  // levels at the top, lamps lit
    QVarLengthArray<QRect, 4> mTextAreas;
    std::vector<std::vector<QPixmap>> mCaps; // by lane and level, made when first shown
    std::vector<QPixmap> mTexts;             // by number, made when first shown
};

} // namespace quillon
