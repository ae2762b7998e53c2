#pragma once

#include <QObject>
#include <QRect>
#include <vector>

class QBackingStore;
class QWidget;

namespace quillon
{

class MeterView;

/// Brings what changed on meters to the screen: once in a round of the event loop, all meters of a window in one go, straight into
/// the pixels of its backing store. The toolkit would book each change as a region, cut it with all that lies around it, send a
/// paint event for it, and wait for the display server before it writes: with forty meters and sixty values a second that is
/// four times the work of the pixels themselves.
///
/// Only a meter that lies plainly on top takes this way. One that something else covers, or that is disabled, masked, shown by an
/// effect or in a window of its own, is repainted by the toolkit, and so are all in a window that is not exposed or is scaled by a
/// broken factor. What the toolkit has still to paint is painted before, since it may lie below. GUI thread.
class MeterPass : public QObject
{
public:
    static MeterPass& instance();

    /// Has the stale parts of a meter painted before the event loop sleeps again.
    void add(MeterView& meter);
    /// For a meter that changes again while it waits: the loop may be one of the window system's own, as while a window is being
    /// dragged on Windows, which takes events but tells nobody when it sleeps.
    void hasten();
    /// For one that is destroyed.
    void remove(MeterView& meter);

    bool event(QEvent* event) override;

private:
    /// Where a widget lies in its window, and what can be seen of it there: nothing of one that is not plainly on top.
    struct Place {
        QPoint origin;
        QRect seen;
    };
    struct Visit {
        MeterView* meter;
        Place place;
    };

    MeterPass();

    void paint();
    static Place placeOf(const QWidget& meter);
    void paintWindow(QWidget& window);
    void paintPixels(QWidget& window, QBackingStore& store);
    void addToRows(QRect area);

    bool mHastened = false;
    std::vector<MeterView*> mWaiting; // null: removed, or visited
    std::vector<Visit> mVisits;       // of one window; a member for its memory's sake, as the next
    std::vector<QRect> mRows;
};

} // namespace quillon
