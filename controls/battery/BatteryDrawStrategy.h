#pragma once

#include <QColor>
#include <QObject>
#include <QRectF>
#include <QTimer>
#include <functional>

class QFont;
class QPainter;

struct BatteryColours {
    QColor critical = Qt::red;
    QColor low = Qt::yellow;
    QColor normal{229, 229, 229};
    QColor background{31, 31, 31};
    QColor disabled{132, 132, 132};
    QColor fill{229, 229, 229};
    QColor chargingFill{0, 255, 0};
    QColor text = Qt::white;
    QColor mark = Qt::white;
};

/// How the charge of a battery is drawn, and how it moves while charging. Levels are percents; they are drawn as they come in, also
/// outside 0 to 100. GUI thread.
class BatteryDrawStrategy : public QObject
{
    Q_OBJECT
public:
    explicit BatteryDrawStrategy(QObject* parent = nullptr, int intervalMs = 30);

    /// Fills rect by the level.
    virtual void drawBattery(QPainter& painter, const QRectF& rect, int level, int lowLevel, bool charging,
                             const BatteryColours& colours) = 0;
    /// A bolt in the middle of rect.
    virtual void drawChargingMark(QPainter& painter, const QRectF& rect, const QColor& colour);
    /// The level as a number in the middle of rect.
    virtual void drawText(QPainter& painter, const QRectF& rect, int level, const QFont& font, const QColor& colour);
    virtual void startAnimation() = 0;
    virtual void stopAnimation() { mTimer.stop(); }
    /// Called when the picture has changed by itself.
    virtual void setUpdateCallback(std::function<void()> callback) { mCallback = std::move(callback); }

    bool isAnimated() const { return mTimer.isActive(); }

protected:
    /// One tick of the animation.
    virtual void tick() = 0;

    BatteryColours mColours;
    int mDisplayedLevel = -1; // nothing drawn yet
    int mAnimatedLevel = -1;
    QTimer mTimer;

private:
    std::function<void()> mCallback;
};

/// One bar. While charging it runs from the level up to full, and again from empty. 30 ms a percent.
class ContinuousDrawStrategy : public BatteryDrawStrategy
{
    Q_OBJECT
public:
    explicit ContinuousDrawStrategy(QObject* parent = nullptr) : BatteryDrawStrategy(parent, 30) {}

    void drawBattery(QPainter& painter, const QRectF& rect, int level, int lowLevel, bool charging,
                     const BatteryColours& colours) override;
    void startAnimation() override;

protected:
    void tick() override;
};

/// Segments side by side, of which the last one that is lit blinks while charging.
class SegmentedBlinkStrategy : public BatteryDrawStrategy
{
    Q_OBJECT
public:
    /// segments: at least 1. gapRatio: width of a gap in shares of the whole width. intervalMs: half a blink.
    SegmentedBlinkStrategy(QObject* parent, quint32 segments, double gapRatio, int intervalMs);

    void drawBattery(QPainter& painter, const QRectF& rect, int level, int lowLevel, bool charging,
                     const BatteryColours& colours) override;
    void startAnimation() override;

    /// Index of the active segment, -1 for none.
    int activeSegment(int level, int lowLevel, bool charging) const;

protected:
    void tick() override;

private:
    quint32 mSegments;
    double mGapRatio;
    bool mBlinkOn = true;
};
