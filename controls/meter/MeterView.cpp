#include "controls/meter/MeterView.h"

#include "app/GlobalFont.h"
#include "controls/Accessibility.h"
#include "controls/meter/MeterSkin.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QWidget>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillon
{

MeterView::Lane::Lane(const MeterShape& shape) : channel(shape.floorDb, shape.holdFollows)
{
    hold.setSingleShot(true);
    clip.setSingleShot(true);
    decay.setInterval(MeterChannel::kDecayMs);
}

MeterView::MeterView(QWidget* host, const MeterShape& shape)
    : mHost(host), mShape(shape), mRatios(shape.ratios), mFont(GlobalFont::instance().font())
{
    for (const MeterColumn& column : shape.columns)
        if (column.kind == MeterColumn::Bar)
            mLanes.emplace_back(shape);
    mHost->setAttribute(Qt::WA_OpaquePaintEvent); // spares the painting of everything behind
    relayout();
}

MeterView::~MeterView() = default;

void MeterView::feed(int lane, int tenthsOfDb)
{
    const auto reading = decodeMeter(tenthsOfDb, mShape.floorDb);
    if (!reading)
        return;
    Lane& fed = mLanes[size_t(lane)];
    if (fed.decay.isActive())
        fed.decay.stop();
    const int before = fed.channel.level();
    const auto result = fed.channel.feed(*reading, fed.hold.isActive());
    if (result.startClip)
        fed.clip.start(MeterChannel::kClipMs);
    if (result.startHold && mShape.textRow)
        fed.hold.start(MeterChannel::kHoldMs);
    changed(lane, result.changed, before);
}

void MeterView::endHold(int lane)
{
    MeterChannel& channel = mLanes[size_t(lane)].channel;
    changed(lane, channel.endHold(), channel.level());
}

void MeterView::endClip(int lane)
{
    MeterChannel& channel = mLanes[size_t(lane)].channel;
    changed(lane, channel.endClip(), channel.level());
}

void MeterView::decay(int lane)
{
    Lane& decaying = mLanes[size_t(lane)];
    if (decaying.channel.atFloor()) {
        decaying.decay.stop();
        return;
    }
    const int before = decaying.channel.level();
    changed(lane, decaying.channel.decay(), before);
}

/// Repaints the strip between the old top of the bar and the new one, with the rounding of both; the number; the lamp.
void MeterView::changed(int lane, unsigned what, int levelBefore)
{
    if (what == MeterChannel::Nothing)
        return;
    const MeterChannel& channel = mLanes[size_t(lane)].channel;
    const MeterLane& place = mLayout.lanes[lane];
    if (what & MeterChannel::Level) {
        const QRect now = mLayout.filled(lane, channel.level());
        const QRect old = mLayout.filled(lane, levelBefore);
        const int bottom = place.bar.y() + place.bar.height();
        const int nowTop = now.isEmpty() ? bottom : now.y();
        const int oldTop = old.isEmpty() ? bottom : old.y();
        const int end = std::max(nowTop, oldTop) + MeterSkin::capHeight(mShape, place.bar);
        // In quarters of the bar: strips of neighbours that begin and end alike join into few rectangles, and a window full
        // of ragged ones costs more to add up than a few more rows to copy.
        const int cell = std::max(1, place.bar.height() / 4);
        const int first = (std::min(nowTop, oldTop) - place.bar.y()) / cell;
        const int last = (end - 1 - place.bar.y()) / cell;
        mHost->update(QRect(place.bar.x(), place.bar.y() + first * cell, place.bar.width(), (last - first + 1) * cell) & place.bar);
    }
    if ((what & MeterChannel::Hold) && mShape.textRow)
        mHost->update(mTextAreas[lane]);
    if (what & MeterChannel::Clip)
        mHost->update(place.lamp);
    announce();
}

void MeterView::setWidthRatios(std::array<int, 5> ratios)
{
    std::ranges::transform(ratios, mRatios.width.begin(), [](int ratio) { return std::clamp(ratio, 0, 100); });
    resendSize();
}

void MeterView::setHeightRatios(std::array<int, 6> ratios)
{
    std::ranges::transform(ratios, mRatios.height.begin(), [](int ratio) { return std::clamp(ratio, 0, 100); });
    resendSize();
}

void MeterView::resendSize()
{
    QResizeEvent event(mHost->size(), mHost->size());
    QCoreApplication::sendEvent(mHost, &event);
}

void MeterView::setFont(const QFont& font)
{
    mFont = font;
    relayout();
}

void MeterView::setScaleLinesHidden(bool hidden)
{
    if (std::exchange(mScaleLinesHidden, hidden) != hidden)
        relayout();
}

void MeterView::relayout()
{
    mLayout = layoutMeter(mHost->size(), mShape, mRatios);
    QFont fitted = mFont;
    fitted.setPointSize(GlobalFont::instance().pointSizeForWidth(mFont, mShape.sample.toString(), mLayout.scale.width()));
    mScene = {&mShape, mRatios, mHost->size(), fitted, mScaleLinesHidden};
    mTextAreas.clear();
    for (const MeterLane& lane : std::as_const(mLayout.lanes))
        mTextAreas.append(meterTextArea(mScene, lane));
    mHost->update();
}

bool MeterView::handle(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint:
        paint(static_cast<QPaintEvent*>(event));
        return true;
    case QEvent::Resize:
        relayout();
        return false;
    case QEvent::MouseButtonDblClick:
        return mHost->isEnabled() && clearLamp(static_cast<QMouseEvent*>(event));
    default:
        return false;
    }
}

void MeterView::paint(QPaintEvent* event)
{
    QPainter painter(mHost);
    MeterMoments moments;
    for (const Lane& lane : mLanes)
        moments.append({lane.channel.level(), lane.channel.hold(), lane.channel.clip()});
    if (!mHost->isEnabled()) {
        painter.fillRect(event->rect(), meterBackground());
        painter.setOpacity(0.4);
    }
    // The scale of the surface painted on, which is not that of the widget when it is rendered into a picture.
    const QTransform transform = painter.deviceTransform();
    const int ratio = int(std::lround(transform.m11()));
    if (transform.type() > QTransform::TxScale || transform.m11() != ratio || transform.m22() != ratio || ratio < 1) {
        paintMeter(painter, mScene, mLayout, moments); // copies would blur between pixels
        return;
    }
    if (!mSkin || !mSkin->fits(mScene, ratio))
        mSkin = MeterSkin::shared(mScene, mLayout, ratio);
    for (const QRect& area : event->region())
        mSkin->paint(painter, area, moments);
}

bool MeterView::clearLamp(const QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    for (qsizetype i = 0; i < mLayout.lanes.size(); ++i) {
        if (mLayout.lanes[i].lamp.contains(event->position().toPoint())) {
            endClip(int(i));
            return true;
        }
    }
    return false;
}

/// A few times a second at most: a reader that spoke every value would never end.
void MeterView::announce()
{
    constexpr int kPauseMs = 300;
    if (!QAccessible::isActive() || (mAnnounced.isValid() && mAnnounced.elapsed() < kPauseMs))
        return;
    mAnnounced.start();
    announceValue(mHost, *this);
}

QString MeterView::accessibleKind() const
{
    return u"Level"_s;
}

ValueControl::Range MeterView::accessibleRange() const
{
    return {double(mShape.floorDb), 0, 1};
}

double MeterView::accessibleValue() const
{
    int loudest = mShape.floorDb;
    for (const Lane& lane : mLanes)
        loudest = std::max(loudest, lane.channel.level());
    return loudest;
}

QString MeterView::accessibleText() const
{
    QStringList texts;
    for (const Lane& lane : mLanes)
        texts += u"%1 dB%2"_s.arg(lane.channel.level()).arg(lane.channel.clip() ? u" clip"_s : QString());
    return texts.join(u", "_s);
}

} // namespace quillon
