#include "controls/meter/MeterPass.h"

#include "controls/meter/MeterSkin.h"
#include "controls/meter/MeterView.h"

#include <QAbstractEventDispatcher>
#include <QBackingStore>
#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QImage>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

bool isCovered(const QWidget& parent, const QWidget& child, const QRect& area)
{
    const QObjectList& children = parent.children(); // the last one lies on top
    for (qsizetype i = children.size() - 1; children[i] != &child; --i) {
        const QObject* above = children[i];
        if (!above->isWidgetType())
            continue;
        const auto& widget = static_cast<const QWidget&>(*above);
        if (!widget.isHidden() && !widget.isWindow() && widget.geometry().intersects(area))
            return true;
    }
    return false;
}

/// The window's picture in memory, if it is all there and is what the window shows.
QBackingStore* currentStore(const QWidget& window)
{
    const QWindow* handle = window.windowHandle();
    QBackingStore* store = window.backingStore();
    const double ratio = window.devicePixelRatio();
    const bool current = store && handle && handle->isExposed() && ratio == std::floor(ratio) &&
                         handle->surfaceType() == QSurface::RasterSurface && store->size() == window.size() &&
                         !window.testAttribute(Qt::WA_TranslucentBackground) && !window.graphicsEffect() &&
                         store->paintDevice()->devType() == QInternal::Image;
    return current ? store : nullptr;
}

bool isX11()
{
    static const bool is = QGuiApplication::platformName() == "xcb"_L1;
    return is;
}

} // namespace

MeterPass::Place MeterPass::placeOf(const QWidget& meter)
{
    QPoint origin;
    QRect seen = meter.rect();
    for (const QWidget* widget = &meter; !widget->isWindow(); widget = widget->parentWidget()) {
        const QWidget& parent = *widget->parentWidget();
        origin += widget->pos();
        seen = seen.translated(widget->pos()) & parent.rect();
        if (seen.isEmpty() || widget->internalWinId() || widget->graphicsEffect() || !widget->mask().isNull() ||
            isCovered(parent, *widget, seen))
            return {};
    }
    return {origin, seen};
}

MeterPass& MeterPass::instance()
{
    static MeterPass pass;
    return pass;
}

/// A posted event would cost a second round of the event loop, and the call that sends the toolkit's from within it a third.
MeterPass::MeterPass()
{
    const auto* dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &MeterPass::paint);
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, &MeterPass::paint); // of a round that does not wait
}

void MeterPass::add(MeterView& meter)
{
    mWaiting.push_back(&meter);
}

void MeterPass::hasten()
{
    if (!std::exchange(mHastened, true))
        QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
}

bool MeterPass::event(QEvent* event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QObject::event(event);
    mHastened = false;
    paint();
    return true;
}

void MeterPass::remove(MeterView& meter)
{
    std::ranges::replace(mWaiting, &meter, nullptr);
}

void MeterPass::paint()
{
    for (size_t i = 0; i < mWaiting.size(); ++i)
        if (mWaiting[i]) // of a window that was not yet visited
            paintWindow(*mWaiting[i]->host().window());
    mWaiting.clear();
}

void MeterPass::paintWindow(QWidget& window)
{
    mVisits.clear();
    const bool current = currentStore(window);
    for (MeterView*& waiting : mWaiting) {
        if (!waiting || waiting->host().window() != &window)
            continue;
        MeterView& meter = *std::exchange(waiting, nullptr);
        if (const Place place = placeOf(meter.host()); current && meter.canBeCopied() && !place.seen.isEmpty())
            mVisits.push_back({&meter, place});
        else
            meter.updateStale();
    }
    QCoreApplication::sendPostedEvents(&window, QEvent::UpdateRequest);
    if (mVisits.empty())
        return;
    if (QBackingStore* store = currentStore(window))
        paintPixels(window, *store);
    else
        for (const Visit& visit : mVisits)
            visit.meter->updateStale();
}

/// One rectangle for all that stand in a row: a few pixels more to copy, instead of many ragged pieces to add up.
void MeterPass::addToRows(QRect area)
{
    std::erase_if(mRows, [&area](const QRect& row) {
        const bool touches = row.top() <= area.bottom() && area.top() <= row.bottom();
        if (touches)
            area |= row;
        return touches;
    });
    mRows.push_back(area);
}

void MeterPass::paintPixels(QWidget& window, QBackingStore& store)
{
    mRows.clear();
    QRegion written;
    for (const auto& [meter, place] : mVisits)
        if (const QRect stale = meter->staleBounds().translated(place.origin) & place.seen; !stale.isEmpty()) {
            addToRows(stale);
            if (!isX11())
                written += stale;
        }
    // X11 reads from the picture while we write into it, and the toolkit waits for that with a round trip, unless it is told of
    // nothing. A copy may then show a meter half old, half new; the copy that belongs to the new half follows at once.
    store.beginPaint(written);
    const auto surface = MeterSurface::of(static_cast<QImage&>(*store.paintDevice()), {});
    for (const auto& [meter, place] : mVisits)
        if (!surface || !meter->paintStale(surface->at(place.origin, place.seen)))
            meter->updateStale();
    store.endPaint();
    QRegion shown;
    for (const QRect& row : mRows)
        shown += row;
    if (!shown.isEmpty()) // a level may change without a pixel of its bar
        store.flush(shown, window.windowHandle());
}

} // namespace quillon
