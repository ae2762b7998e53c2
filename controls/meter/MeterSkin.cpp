#include "controls/meter/MeterSkin.h"

#include <QPainter>
#include <cmath>

namespace quillon
{

std::shared_ptr<MeterSkin> MeterSkin::shared(const MeterScene& scene, const MeterLayout& layout, int pixelRatio)
{
    static std::vector<std::weak_ptr<MeterSkin>> skins;
    for (const auto& weak : skins)
        if (auto skin = weak.lock(); skin && skin->fits(scene, pixelRatio))
            return skin;
    std::erase_if(skins, [](const auto& weak) { return weak.expired(); });
    std::shared_ptr<MeterSkin> skin(new MeterSkin(scene, layout, pixelRatio));
    skins.push_back(skin);
    return skin;
}

MeterSkin::MeterSkin(const MeterScene& scene, const MeterLayout& layout, int pixelRatio)
    : mScene(scene), mLayout(layout), mPixelRatio(pixelRatio), mDark(blank(scene.size)), mLit(blank(scene.size)),
      mCaps(size_t(layout.lanes.size())), mTexts(size_t(1 - layout.floorDb))
{
    QPainter dark(&mDark);
    QPainter lit(&mLit);
    MeterScene bare = scene; // the numbers come apart
    MeterShape noText = *scene.shape;
    noText.textRow = false;
    bare.shape = &noText;
    MeterMoments floor;
    MeterMoments top;
    for (const MeterLane& lane : layout.lanes) {
        floor.append({layout.floorDb, layout.floorDb, false});
        top.append({0, 0, true});
        mTextAreas.append(meterTextArea(scene, lane));
    }
    paintMeter(dark, bare, layout, floor);
    paintMeter(lit, bare, layout, top);
    for (auto& caps : mCaps)
        caps.resize(mTexts.size());
}

int MeterSkin::capHeight(const MeterShape& shape, const QRect& bar)
{
    return int(std::ceil(2 * bar.width() * shape.barRadius)) + 1; // both pairs of corners: they meet in a short bar
}

/// Opaque: copies of it need no blending.
QPixmap MeterSkin::blank(QSize size) const
{
    QPixmap pixmap(size * mPixelRatio);
    pixmap.setDevicePixelRatio(mPixelRatio);
    pixmap.fill(meterBackground());
    return pixmap;
}

void MeterSkin::copy(QPainter& painter, const QRect& area, const QPixmap& picture, QPoint origin) const
{
    if (area.isEmpty() || picture.isNull())
        return;
    const QRect source((area.topLeft() - origin) * mPixelRatio, area.size() * mPixelRatio);
    painter.drawPixmap(area, picture, source);
}

const QPixmap& MeterSkin::cap(qsizetype lane, int levelDb)
{
    QPixmap& pixmap = mCaps[size_t(lane)][size_t(-levelDb)];
    if (pixmap.isNull()) {
        const QRect filled = mLayout.filled(lane, levelDb);
        const QRect area(filled.topLeft(), QSize(filled.width(), std::min(filled.height(), capHeight(*mScene.shape, filled))));
        pixmap = blank(area.size());
        QPainter painter(&pixmap);
        painter.translate(-area.topLeft());
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        copy(painter, area, mDark, {});
        paintMeterBar(painter, mScene, mLayout, lane, levelDb);
        paintMeterScale(painter, mScene, mLayout); // a label wider than its column lies over the bar
    }
    return pixmap;
}

const QPixmap& MeterSkin::text(int holdDb)
{
    QPixmap& pixmap = mTexts[size_t(-holdDb)];
    if (pixmap.isNull()) {
        // The lanes' numbers differ only in place.
        pixmap = QPixmap(mTextAreas[0].size() * mPixelRatio);
        pixmap.setDevicePixelRatio(mPixelRatio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.translate(-mTextAreas[0].topLeft());
        painter.setRenderHint(QPainter::TextAntialiasing);
        painter.setFont(mScene.font);
        paintMeterText(painter, mScene, mLayout.lanes[0], holdDb);
    }
    return pixmap;
}

void MeterSkin::paint(QPainter& painter, const QRect& area, const MeterMoments& moments)
{
    copy(painter, area, mDark, {});
    for (qsizetype i = 0; i < mLayout.lanes.size(); ++i) {
        const MeterLane& lane = mLayout.lanes[i];
        const MeterMoment& moment = moments[i];
        if (mScene.shape->textRow && area.intersects(mTextAreas[i]))
            copy(painter, area & mTextAreas[i], text(moment.hold), mTextAreas[i].topLeft());
        if (moment.clip)
            copy(painter, area & lane.lamp, mLit, {});
        const QRect filled = mLayout.filled(i, moment.level);
        if (filled.isEmpty() || !area.intersects(filled))
            continue;
        const int capRows = std::min(filled.height(), capHeight(*mScene.shape, filled));
        const QRect top(filled.topLeft(), QSize(filled.width(), capRows));
        if (area.intersects(top))
            copy(painter, area & top, cap(i, moment.level), top.topLeft());
        copy(painter, area & filled.adjusted(0, capRows, 0, 0), mLit, {});
    }
}

} // namespace quillon
