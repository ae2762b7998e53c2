#pragma once

#include "controls/meter/MeterPaint.h"

#include <QImage>
#include <memory>
#include <optional>
#include <vector>

class QWidget;

namespace quillon
{

/// The pixels that a widget is being painted on, 32 bits each.
struct MeterSurface {
    uchar* bits;
    qsizetype stride;
    QRect bounds; // in the widget's coordinates
    int pixelRatio;

    /// Nothing outside of a paint event, and where these pixels can't be written as they are: a painter stands in between, or
    /// the scale is not a whole number.
    static std::optional<MeterSurface> of(const QWidget& widget);
    static std::optional<MeterSurface> of(QImage& image, QPoint widgetOrigin);
    /// The same pixels for a widget at origin in this one, of which no more than seen is to be written; seen as bounds are.
    MeterSurface at(QPoint origin, const QRect& seen) const;
};

/// The pictures from which a meter is put together, so that a new level costs a few runs of bytes instead of rounded, shaded and
/// lettered painting, or even a painter. All meters of one look and size share one skin; it lives as long as one of them holds it.
///
/// The copies give what paintMeter() gives, to a few steps of a colour at rounded edges. Per skin at 45 by 220 pixels: some 150 kB.
/// GUI thread.
class MeterSkin
{
public:
    /// pixelRatio: device pixels per pixel, whole.
    static std::shared_ptr<MeterSkin> shared(const MeterScene& scene, const MeterLayout& layout, int pixelRatio);

    int pixelRatio() const { return mPixelRatio; }

    /// Copies what lies in area onto a surface of the skin's pixel ratio.
    void paint(const MeterSurface& surface, QRect area, const MeterMoments& moments);

    /// How far below its end a bar may differ from one that reaches further.
    static int capLength(const MeterShape& shape, const MeterLayout& layout, const QRect& bar);

private:
    /// With the place of its pixels, which is asked for some thousand times a second.
    struct Picture {
        QImage image;
        const uchar* bits = nullptr;
        qsizetype stride = 0;

        Picture() = default;
        explicit Picture(QImage finished);
    };
    struct Lane {
        QRect textArea;
        int capLength;
        bool textAlone = true;      // no other part lies in its area
        bool barAlone = true;       // the same of the bar
        std::vector<Picture> caps;  // by level, made when first shown
        std::vector<Picture> texts; // by number, made when first shown
    };

    MeterSkin(const MeterScene& scene, const MeterLayout& layout, int pixelRatio);

    QImage blank(QSize size) const;
    QImage darkPart(const QRect& area) const;
    /// The part of a picture that has its top left corner at origin.
    void copy(const MeterSurface& surface, const QRect& area, const Picture& picture, QPoint origin) const;
    void copyBar(const MeterSurface& surface, const QRect& area, qsizetype lane, int levelDb);
    /// Paints an area that lies in one part, if no other part lies there: the most of what changes. False for all others.
    bool paintPart(const MeterSurface& surface, const QRect& area, const MeterMoments& moments);
    /// The end of a filled bar, with its own corners.
    QRect capArea(qsizetype lane, const QRect& filled) const;
    const Picture& cap(qsizetype lane, int levelDb);
    const Picture& text(qsizetype lane, int holdDb);

    MeterScene mScene;
    MeterLayout mLayout;
    int mPixelRatio;
    Picture mDark; // levels at the floor, lamps off, no numbers
    Picture mLit;  // levels at the top, lamps lit
    std::vector<Lane> mLanes;
};

} // namespace quillon
