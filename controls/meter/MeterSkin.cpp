#include "controls/meter/MeterSkin.h"

#include <QPainter>
#include <QWidget>
#include <cmath>
#include <cstring>

namespace quillon
{

namespace
{

constexpr int kPixelBytes = 4;

/// Names what a widget tells its derived classes about the paint event in which it is.
struct PaintTarget : QWidget {
    using QWidget::redirected;
    using QWidget::sharedPainter;
};

} // namespace

std::optional<MeterSurface> MeterSurface::of(const QWidget& widget)
{
    QPoint offset;
    QPaintDevice* device = (widget.*(&PaintTarget::redirected))(&offset);
    if (!device || device->devType() != QInternal::Image || (widget.*(&PaintTarget::sharedPainter))())
        return std::nullopt;
    return of(static_cast<QImage&>(*device), -offset);
}

std::optional<MeterSurface> MeterSurface::of(QImage& image, QPoint widgetOrigin)
{
    const double scale = image.devicePixelRatio();
    const int ratio = int(std::lround(scale));
    const auto format = image.format();
    if (ratio < 1 || scale != ratio ||
        (format != QImage::Format_RGB32 && format != QImage::Format_ARGB32_Premultiplied && format != QImage::Format_ARGB32))
        return std::nullopt;
    const qsizetype stride = image.bytesPerLine();
    uchar* bits = image.bits() + widgetOrigin.y() * ratio * stride + qsizetype(widgetOrigin.x()) * ratio * kPixelBytes;
    return MeterSurface{bits, stride, QRect(-widgetOrigin, image.size() / ratio), ratio};
}

MeterSurface MeterSurface::at(QPoint origin, const QRect& seen) const
{
    return {bits + origin.y() * pixelRatio * stride + qsizetype(origin.x()) * pixelRatio * kPixelBytes, stride,
            (bounds & seen).translated(-origin), pixelRatio};
}

MeterSkin::Picture::Picture(QImage finished)
    : image(std::move(finished)), bits(std::as_const(image).constBits()), stride(image.bytesPerLine())
{
}

std::shared_ptr<MeterSkin> MeterSkin::shared(const MeterScene& scene, const MeterLayout& layout, int pixelRatio)
{
    static std::vector<std::weak_ptr<MeterSkin>> skins;
    for (const auto& weak : skins)
        if (auto skin = weak.lock(); skin && skin->mPixelRatio == pixelRatio && skin->mScene == scene)
            return skin;
    std::erase_if(skins, [](const auto& weak) { return weak.expired(); });
    std::shared_ptr<MeterSkin> skin(new MeterSkin(scene, layout, pixelRatio));
    skins.push_back(skin);
    return skin;
}

MeterSkin::MeterSkin(const MeterScene& scene, const MeterLayout& layout, int pixelRatio)
    : mScene(scene), mLayout(layout), mPixelRatio(pixelRatio)
{
    MeterScene bare = scene; // the numbers come apart
    MeterShape noText = *scene.shape;
    noText.textRow = false;
    bare.shape = &noText;
    MeterMoments floor;
    MeterMoments top;
    const auto levels = size_t(1 - layout.floorDb);
    for (const MeterLane& lane : layout.lanes) {
        floor.append({layout.floorDb, layout.floorDb, false});
        top.append({0, 0, true});
        mLanes.push_back({.textArea = meterTextArea(scene, lane),
                          .capLength = capLength(*scene.shape, layout, lane.bar),
                          .caps = std::vector<Picture>(levels),
                          .texts = std::vector<Picture>(levels)});
    }
    for (qsizetype i = 0; i < layout.lanes.size(); ++i)
        for (qsizetype k = 0; k < layout.lanes.size(); ++k) {
            const QRect& text = mLanes[size_t(i)].textArea;
            const MeterLane& other = layout.lanes[k];
            if (text.intersects(other.lamp) || (k != i && text.intersects(mLanes[size_t(k)].textArea)))
                mLanes[size_t(i)].textAlone = false;
            if (text.intersects(other.bar))
                mLanes[size_t(i)].textAlone = mLanes[size_t(k)].barAlone = false;
        }
    const auto painted = [&](const MeterMoments& moments) {
        QImage image = blank(scene.size);
        QPainter painter(&image);
        paintMeter(painter, bare, layout, moments);
        painter.end();
        return Picture(std::move(image));
    };
    mDark = painted(floor);
    mLit = painted(top);
}

int MeterSkin::capLength(const MeterShape& shape, const MeterLayout& layout, const QRect& bar)
{
    const int thickness = layout.orientation == Qt::Vertical ? bar.width() : bar.height();
    return int(std::ceil(2 * thickness * shape.barRadius)) + 1; // both pairs of corners: they meet in a short bar
}

/// Opaque: copies of it need no blending.
QImage MeterSkin::blank(QSize size) const
{
    QImage image(size * mPixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(mPixelRatio);
    image.fill(meterBackground());
    return image;
}

QImage MeterSkin::darkPart(const QRect& area) const
{
    return mDark.image.copy(QRect(area.topLeft() * mPixelRatio, area.size() * mPixelRatio));
}

void MeterSkin::copy(const MeterSurface& surface, const QRect& area, const Picture& picture, QPoint origin) const
{
    if (area.isEmpty() || !picture.bits)
        return;
    const qsizetype bytes = qsizetype(area.width()) * mPixelRatio * kPixelBytes;
    const qsizetype pixel = qsizetype(mPixelRatio) * kPixelBytes;
    const uchar* from = picture.bits + (area.y() - origin.y()) * mPixelRatio * picture.stride + (area.x() - origin.x()) * pixel;
    uchar* to = surface.bits + area.y() * mPixelRatio * surface.stride + area.x() * pixel;
    for (int row = area.height() * mPixelRatio; row > 0; --row, from += picture.stride, to += surface.stride)
        std::memcpy(to, from, size_t(bytes));
}

QRect MeterSkin::capArea(qsizetype lane, const QRect& filled) const
{
    const int length = mLanes[size_t(lane)].capLength;
    if (mLayout.orientation == Qt::Vertical)
        return {filled.topLeft(), QSize(filled.width(), std::min(length, filled.height()))};
    const int width = std::min(length, filled.width());
    return {QPoint(filled.x() + filled.width() - width, filled.y()), QSize(width, filled.height())};
}

const MeterSkin::Picture& MeterSkin::cap(qsizetype lane, int levelDb)
{
    Picture& picture = mLanes[size_t(lane)].caps[size_t(-levelDb)];
    if (!picture.bits) {
        const QRect area = capArea(lane, mLayout.filled(lane, levelDb));
        QImage image = darkPart(area);
        QPainter painter(&image);
        painter.translate(-area.topLeft());
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        paintMeterBar(painter, mScene, mLayout, lane, levelDb);
        paintMeterScale(painter, mScene, mLayout); // a label wider than its column lies over the bar
        painter.end();
        picture = Picture(std::move(image));
    }
    return picture;
}

const MeterSkin::Picture& MeterSkin::text(qsizetype lane, int holdDb)
{
    Picture& picture = mLanes[size_t(lane)].texts[size_t(-holdDb)];
    if (!picture.bits) {
        const QRect area = mLanes[size_t(lane)].textArea;
        QImage image = darkPart(area);
        QPainter painter(&image);
        painter.translate(-area.topLeft());
        painter.setRenderHint(QPainter::TextAntialiasing);
        painter.setFont(mScene.font);
        paintMeterText(painter, mScene, mLayout.lanes[lane], holdDb);
        painter.end();
        picture = Picture(std::move(image));
    }
    return picture;
}

void MeterSkin::copyBar(const MeterSurface& surface, const QRect& area, qsizetype lane, int levelDb)
{
    const QRect filled = mLayout.filled(lane, levelDb);
    if (!area.intersects(filled))
        return;
    const QRect end = capArea(lane, filled);
    if (area.intersects(end))
        copy(surface, area & end, cap(lane, levelDb), end.topLeft());
    const QRect body =
        mLayout.orientation == Qt::Vertical ? filled.adjusted(0, end.height(), 0, 0) : filled.adjusted(0, 0, -end.width(), 0);
    copy(surface, area & body, mLit, {});
}

bool MeterSkin::paintPart(const MeterSurface& surface, const QRect& area, const MeterMoments& moments)
{
    for (qsizetype i = 0; i < mLayout.lanes.size(); ++i) {
        const Lane& lane = mLanes[size_t(i)];
        if (!mLayout.lanes[i].shown)
            continue;
        if (const QRect& bar = mLayout.lanes[i].bar; lane.barAlone && bar.contains(area)) {
            const QRect filled = mLayout.filled(i, moments[i].level);
            const QRect dark = mLayout.orientation == Qt::Vertical ? bar.adjusted(0, 0, 0, -filled.height())
                                                                   : bar.adjusted(filled.width(), 0, 0, 0);
            copy(surface, area & dark, mDark, {});
            copyBar(surface, area, i, moments[i].level);
            return true;
        }
        if (lane.textAlone && lane.textArea.contains(area)) {
            copy(surface, area, text(i, moments[i].hold), lane.textArea.topLeft());
            return true;
        }
    }
    return false;
}

void MeterSkin::paint(const MeterSurface& surface, QRect area, const MeterMoments& moments)
{
    area &= surface.bounds & QRect(QPoint(), mScene.size);
    if (area.isEmpty() || paintPart(surface, area, moments))
        return;
    copy(surface, area, mDark, {});
    for (qsizetype i = 0; i < mLayout.lanes.size(); ++i) {
        const MeterLane& lane = mLayout.lanes[i];
        const MeterMoment& moment = moments[i];
        if (!lane.shown)
            continue;
        if (const QRect textArea = mLanes[size_t(i)].textArea; area.intersects(textArea))
            copy(surface, area & textArea, text(i, moment.hold), textArea.topLeft());
        if (moment.clip)
            copy(surface, area & lane.lamp, mLit, {});
        copyBar(surface, area, i, moment.level);
    }
}

} // namespace quillon
