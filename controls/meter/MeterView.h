#pragma once

#include "controls/ValueControl.h"
#include "controls/meter/MeterChannel.h"
#include "controls/meter/MeterPaint.h"

#include <QElapsedTimer>
#include <QFont>
#include <QTimer>
#include <deque>
#include <memory>

class QEvent;
class QMouseEvent;
class QPaintEvent;
class QWidget;

namespace quillon
{

class MeterSkin;

/// What a meter widget holds: channels, timers, layout and pictures. The widget passes its events to handle() and its feeds to
/// feed(), and connects the timers to its slots. GUI thread.
class MeterView : public ValueControl
{
public:
    MeterView(QWidget* host, const MeterShape& shape);
    ~MeterView() override;
    Q_DISABLE_COPY_MOVE(MeterView)

    /// One value of the device for a lane, in tenths of a dB. Repaints what it changed, and nothing if it changed nothing.
    void feed(int lane, int tenthsOfDb);

    QTimer& holdTimer(int lane) { return mLanes[size_t(lane)].hold; }
    QTimer& clipTimer(int lane) { return mLanes[size_t(lane)].clip; }
    QTimer& decayTimer(int lane) { return mLanes[size_t(lane)].decay; }
    void endHold(int lane);
    void endClip(int lane);
    /// A tick of the decay; at the floor it stops the timer instead.
    void decay(int lane);

    void setWidthRatios(std::array<int, 5> ratios);
    void setHeightRatios(std::array<int, 6> ratios);
    void setFont(const QFont& font);
    void setScaleLinesHidden(bool hidden);

    /// True when the event was of the meter's business and is done with.
    bool handle(QEvent* event);

    QAccessible::Role accessibleRole() const override { return QAccessible::Indicator; }
    QString accessibleKind() const override;
    Range accessibleRange() const override;
    /// The loudest lane.
    double accessibleValue() const override;
    QString accessibleText() const override;

    const MeterChannel& channel(int lane) const { return mLanes[size_t(lane)].channel; }
    const MeterLayout& layout() const { return mLayout; }

private:
    struct Lane {
        explicit Lane(const MeterShape& shape);
        MeterChannel channel;
        QTimer hold;
        QTimer clip;
        QTimer decay;
    };

    void relayout();
    void resendSize();
    void changed(int lane, unsigned what, int levelBefore);
    void paint(QPaintEvent* event);
    bool clearLamp(const QMouseEvent* event);
    void announce();

    QWidget* mHost;
    const MeterShape& mShape;
    MeterRatios mRatios;
    MeterLayout mLayout;
    MeterScene mScene;
    QVarLengthArray<QRect, 4> mTextAreas;
    QFont mFont;
    bool mScaleLinesHidden = false;
    std::deque<Lane> mLanes; // timers do not move
    std::shared_ptr<MeterSkin> mSkin;
    QElapsedTimer mAnnounced;
};

} // namespace quillon
