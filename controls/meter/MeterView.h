#pragma once

#include "controls/ValueControl.h"
#include "controls/meter/MeterChannel.h"
#include "controls/meter/MeterPaint.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFont>
#include <QTimer>
#include <deque>
#include <initializer_list>
#include <memory>
#include <vector>

class QEvent;
class QMouseEvent;
class QPaintEvent;
class QWidget;

namespace quillon
{

class MeterSkin;
struct MeterSurface;

/// What a meter widget holds: channels, timers, layout and pictures. A lane is one bar, from the left or, of a pair, the measured
/// one first; a side is one bar or such a pair. GUI thread.
class MeterView : public ValueControl
{
public:
    MeterView(QWidget* host, const MeterShape& shape);
    ~MeterView() override;
    Q_DISABLE_COPY_MOVE(MeterView)

    /// Has the host's slots called at the end of a hold, of a clip, and at each tick of a decay. The first two are one a lane, the
    /// last is one a side.
    template<class Host>
    void connectTimers(Host* host, std::initializer_list<void (Host::*)()> holdEnds,
                       std::initializer_list<void (Host::*)()> clipEnds, std::initializer_list<void (Host::*)()> decays);

    /// One value of the device for a lane, in tenths of a dB. Repaints what it changed, and nothing if it changed nothing.
    void feed(int lane, int tenthsOfDb);
    /// The same for the pair of a side, of which the second bar has a gain added.
    void feedGained(int side, int tenthsOfDb, int gainDb);
    /// Has a side run down to the floor until its next value.
    void startDecay(int side);
    bool isDecaying(int side) const { return mDecaying & (1U << side); }

    void endHold(int lane);
    void endClip(int lane);
    /// A tick of the decay; with all bars of the side at the floor it stops the timer instead.
    void decay(int side);

    /// In percent, as the shape names them; below 0 counts as 0.
    void setWidthRatios(std::array<int, 5> ratios);
    void setHeightRatios(std::array<int, 6> ratios);
    void setFont(const QFont& font);
    void setHidden(MeterPart part, bool hidden);

    /// True when the event was of the meter's business and is done with.
    bool handle(QEvent* event);

    QAccessible::Role accessibleRole() const override { return QAccessible::ProgressBar; }
    QString accessibleKind() const override;
    Range accessibleRange() const override;
    /// The loudest lane.
    double accessibleValue() const override;
    QString accessibleText() const override;

    const MeterChannel& channel(int lane) const { return mLanes[size_t(lane)].channel; }
    const MeterLayout& layout() const { return mLayout; }

    QWidget& host() const { return *mHost; }
    /// What has changed since the last painting, in the host's coordinates.
    QRect staleBounds() const;
    /// Whether the widget's pixels can be put together from copies; they are made at the first paint event.
    bool canBeCopied() const;
    /// False where the copies are of another pixel ratio.
    bool paintStale(const MeterSurface& surface);
    /// Has the toolkit paint it.
    void updateStale();

    QTimer& clipTimer(int lane) { return mTimers[size_t(lane)].clip; }
    int decayMs(int side) const { return mDecays[size_t(side)].interval(); }

private:
    struct Lane {
        MeterChannel channel;
        bool holding = false; // the timer runs: most feeds need not look at it
        int capLength = 0;
        QRect textArea{};
        QRect staleBar{};
        QRect staleNumber{};
        QRect staleLamp{};
        std::array<QRect*, 3> stale() { return {&staleBar, &staleNumber, &staleLamp}; }
    };
    struct Timers {
        Timers();
        /// Peaks come faster than a timer is cheap: one that runs is left alone, and finds out at its end that it goes on.
        void startHold();
        bool isHoldOver();
        QTimer hold;
        QDeadlineTimer holdEnd;
        QTimer clip;
    };

    void stopDecay(int side);
    void take(int lane, MeterReading reading);
    void relayout();
    void resendSize();
    void changed(int lane, unsigned what, int levelBefore);
    QRect changedBar(int lane, int levelBefore) const;
    MeterMoments moments() const;
    void paint(QPaintEvent* event);
    bool clearLamp(const QMouseEvent* event);
    void announce();

    // What a feed touches stands together.
    QWidget* mHost;
    const MeterShape& mShape;
    bool mStale = false;
    unsigned mDecaying = 0; // bits of sides: a feed seldom has a timer to look at
    std::vector<Lane> mLanes;
    MeterLayout mLayout;
    std::shared_ptr<MeterSkin> mSkin;

    std::deque<Timers> mTimers; // of the lanes; timers do not move
    std::deque<QTimer> mDecays;
    QElapsedTimer mAnnounced;
    MeterRatios mRatios;
    MeterScene mScene;
    QFont mFont;
    unsigned mHidden = 0;
};

template<class Host>
void MeterView::connectTimers(Host* host, std::initializer_list<void (Host::*)()> holdEnds,
                              std::initializer_list<void (Host::*)()> clipEnds, std::initializer_list<void (Host::*)()> decays)
{
    const auto join = [host](QTimer& timer, void (Host::*slot)()) { QObject::connect(&timer, &QTimer::timeout, host, slot); };
    size_t index = 0;
    for (const auto slot : holdEnds) {
        Timers& timers = mTimers[index++];
        QObject::connect(&timers.hold, &QTimer::timeout, host, [host, slot, &timers] {
            if (timers.isHoldOver())
                (host->*slot)();
        });
    }
    index = 0;
    for (const auto slot : clipEnds)
        join(mTimers[index++].clip, slot);
    index = 0;
    for (const auto slot : decays)
        join(mDecays[index++], slot);
}

/// What the faces of all members have in common.
class MeterFace : public ValueControlHost
{
public:
    void setFont(const QFont& font) { mView.setFont(font); }
    /// Leaves the tick lines of the scale out; the numbers stay.
    void setScaleLinesHidden(bool hidden) { mView.setHidden(ScaleLines, hidden); }

    ValueControl& valueControl() override { return mView; }

protected:
    MeterFace(QWidget* host, const MeterShape& shape) : mView(host, shape) {}

    MeterView mView;
};

} // namespace quillon
