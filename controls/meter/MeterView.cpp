#include "controls/meter/MeterView.h"

#include "app/GlobalFont.h"
#include "controls/Accessibility.h"
#include "controls/meter/MeterPass.h"
#include "controls/meter/MeterSkin.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QWidget>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

MeterView::Timers::Timers()
{
    hold.setSingleShot(true);
    clip.setSingleShot(true);
}

void MeterView::Timers::startHold()
{
    holdEnd.setRemainingTime(MeterChannel::kHoldMs);
    if (!hold.isActive())
        hold.start(MeterChannel::kHoldMs);
}

bool MeterView::Timers::isHoldOver()
{
    if (holdEnd.hasExpired())
        return true;
    hold.start(int(holdEnd.remainingTime()));
    return false;
}

MeterView::MeterView(QWidget* host, const MeterShape& shape)
    : mHost(host), mShape(shape), mRatios(shape.ratios), mFont(GlobalFont::instance().font())
{
    for (int lane = 0; lane < shape.lanes(); ++lane) {
        mLanes.push_back({.channel = MeterChannel(shape.floorDb, shape.holdFollows)});
        mTimers.emplace_back();
        if (lane % shape.lanesPerSide == 0)
            mDecays.emplace_back().setInterval(MeterChannel::kDecayMs);
    }
    mHost->setAttribute(Qt::WA_OpaquePaintEvent); // spares the painting of everything behind
    relayout();
}

MeterView::~MeterView()
{
    if (mStale)
        MeterPass::instance().remove(*this);
}

void MeterView::feed(int lane, int tenthsOfDb)
{
    if (const auto reading = decodeMeter(tenthsOfDb, mShape.floorDb)) {
        stopDecay(lane / mShape.lanesPerSide);
        take(lane, *reading);
    }
}

void MeterView::feedGained(int side, int tenthsOfDb, int gainDb)
{
    if (const auto reading = decodeGained(tenthsOfDb, gainDb, mShape.floorDb)) {
        stopDecay(side);
        take(side * mShape.lanesPerSide, reading->origin);
        take(side * mShape.lanesPerSide + 1, reading->gained);
    }
}

void MeterView::startDecay(int side)
{
    mDecays[size_t(side)].start();
    mDecaying |= 1U << side;
}

void MeterView::stopDecay(int side)
{
    if (!isDecaying(side))
        return;
    mDecays[size_t(side)].stop();
    mDecaying &= ~(1U << side);
}

void MeterView::take(int lane, MeterReading reading)
{
    Lane& fed = mLanes[size_t(lane)];
    const int before = fed.channel.level();
    const auto result = fed.channel.feed(reading, fed.holding);
    if (result.startClip)
        mTimers[size_t(lane)].clip.start(MeterChannel::kClipMs);
    if (result.startHold && mShape.textRow) {
        mTimers[size_t(lane)].startHold();
        fed.holding = true;
    }
    changed(lane, result.changed, before);
}

void MeterView::endHold(int lane)
{
    Lane& held = mLanes[size_t(lane)];
    held.holding = false;
    changed(lane, held.channel.endHold(), held.channel.level());
}

void MeterView::endClip(int lane)
{
    MeterChannel& channel = mLanes[size_t(lane)].channel;
    changed(lane, channel.endClip(), channel.level());
}

void MeterView::decay(int side)
{
    bool atFloor = true;
    for (int lane = side * mShape.lanesPerSide; lane < (side + 1) * mShape.lanesPerSide; ++lane) {
        MeterChannel& channel = mLanes[size_t(lane)].channel;
        const int before = channel.level();
        atFloor = atFloor && channel.atFloor();
        changed(lane, channel.decay(), before);
    }
    if (atFloor)
        stopDecay(side);
}

void MeterView::changed(int lane, unsigned what, int levelBefore)
{
    if (what == MeterChannel::Nothing)
        return;
    announce();
    Lane& fed = mLanes[size_t(lane)];
    const MeterLane& place = mLayout.lanes[lane];
    if (!place.shown || !mHost->isVisible())
        return;
    if (what & MeterChannel::Level) {
        if (!fed.staleBar.isEmpty())
            MeterPass::instance().hasten();
        fed.staleBar |= changedBar(lane, levelBefore);
    }
    if (what & MeterChannel::Hold)
        fed.staleNumber = fed.textArea;
    if (what & MeterChannel::Clip)
        fed.staleLamp = place.lamp;
    if (!std::exchange(mStale, true))
        MeterPass::instance().add(*this);
}

/// From the old end of the bar to the new one, with the rounding of both.
QRect MeterView::changedBar(int lane, int levelBefore) const
{
    const QRect& bar = mLayout.lanes[lane].bar;
    const QRect now = mLayout.filled(lane, mLanes[size_t(lane)].channel.level());
    const QRect old = mLayout.filled(lane, levelBefore);
    if (now == old)
        return {};
    const int cap = mLanes[size_t(lane)].capLength;
    if (mShape.orientation == Qt::Horizontal) {
        const auto [shorter, longer] = std::minmax({now.width(), old.width()});
        const int begin = std::max(0, shorter - cap);
        return {bar.x() + begin, bar.y(), longer - begin, bar.height()};
    }
    const auto [shorter, longer] = std::minmax({now.height(), old.height()});
    const int begin = bar.height() - longer;
    return {bar.x(), bar.y() + begin, bar.width(), std::min(bar.height(), bar.height() - shorter + cap) - begin};
}

QRect MeterView::staleBounds() const
{
    QRect bounds;
    for (const Lane& lane : mLanes)
        bounds |= lane.staleBar | lane.staleNumber | lane.staleLamp;
    return bounds;
}

bool MeterView::canBeCopied() const
{
    return mSkin && mHost->isEnabled() && mHost->updatesEnabled() && mHost->isVisible();
}

bool MeterView::paintStale(const MeterSurface& surface)
{
    if (surface.pixelRatio != mSkin->pixelRatio())
        return false;
    const MeterMoments now = moments();
    mStale = false;
    for (Lane& lane : mLanes)
        for (QRect* stale : lane.stale())
            if (const QRect area = std::exchange(*stale, {}); !area.isEmpty())
                mSkin->paint(surface, area, now);
    return true;
}

void MeterView::updateStale()
{
    mStale = false;
    for (Lane& lane : mLanes)
        for (QRect* stale : lane.stale())
            mHost->update(std::exchange(*stale, {}));
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

void MeterView::setHidden(MeterPart part, bool hidden)
{
    const unsigned parts = hidden ? mHidden | part : mHidden & ~unsigned(part);
    if (std::exchange(mHidden, parts) != parts)
        relayout();
}

void MeterView::relayout()
{
    mLayout = layoutMeter(mHost->size(), mShape, mRatios, mHidden);
    mScene = {&mShape, mRatios, mHost->size(), meterFont(mFont, mShape, mLayout), mHidden};
    mSkin.reset();
    for (size_t i = 0; i < mLanes.size(); ++i) {
        const MeterLane& place = mLayout.lanes[qsizetype(i)];
        mLanes[i].capLength = MeterSkin::capLength(mShape, mLayout, place.bar);
        mLanes[i].textArea = meterTextArea(mScene, place);
    }
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

MeterMoments MeterView::moments() const
{
    MeterMoments moments;
    for (const Lane& lane : mLanes)
        moments.append({lane.channel.level(), lane.channel.hold(), lane.channel.clip()});
    return moments;
}

void MeterView::paint(QPaintEvent* event)
{
    if (const auto surface = MeterSurface::of(*mHost); surface && mHost->isEnabled()) {
        if (!mSkin || mSkin->pixelRatio() != surface->pixelRatio)
            mSkin = MeterSkin::shared(mScene, mLayout, surface->pixelRatio);
        for (const QRect& area : event->region())
            mSkin->paint(*surface, area, moments());
        return;
    }
    QPainter painter(mHost);
    if (!mHost->isEnabled()) {
        painter.fillRect(event->rect(), meterBackground());
        painter.setOpacity(0.4);
    }
    paintMeter(painter, mScene, mLayout, moments());
}

bool MeterView::clearLamp(const QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    for (qsizetype i = 0; i < mLayout.lanes.size(); ++i) {
        if (mLayout.lanes[i].shown && mLayout.lanes[i].lamp.contains(event->position().toPoint())) {
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
