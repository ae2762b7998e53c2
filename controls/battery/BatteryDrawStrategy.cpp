#include "controls/battery/BatteryDrawStrategy.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

/// Signs stand on the lit and on the dark part of a battery: a dark edge keeps them legible on both.
static void drawSign(QPainter& painter, const QPainterPath& sign, const QColor& colour, double edge)
{
    painter.strokePath(sign, QPen(QColor(31, 31, 31), edge, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(sign, colour);
}

BatteryDrawStrategy::BatteryDrawStrategy(QObject* parent, int intervalMs) : QObject(parent)
{
    mTimer.setInterval(std::max(intervalMs, 1));
    connect(&mTimer, &QTimer::timeout, this, [this] {
        tick();
        if (mCallback)
            mCallback();
    });
}

void BatteryDrawStrategy::drawChargingMark(QPainter& painter, const QRectF& rect, const QColor& colour)
{
    const double step = rect.height() / 24;
    const QPointF middle = rect.center();
    const auto at = [&](double x, double y) { return middle + QPointF(x, y) * step; };
    QPainterPath bolt;
    bolt.addPolygon(QPolygonF({at(2, -11), at(-7, 2), at(-1, 2), at(-2, 11), at(7, -3), at(1, -3)}));
    bolt.closeSubpath();
    drawSign(painter, bolt, colour, step * 3);
}

void BatteryDrawStrategy::drawText(QPainter& painter, const QRectF& rect, int level, const QFont& font, const QColor& colour)
{
    const QString text = QString::number(level);
    QPainterPath letters;
    letters.addText(0, 0, font, text);
    const QRectF bounds = letters.boundingRect();
    letters.translate(rect.center() - bounds.center());
    drawSign(painter, letters, colour, rect.height() * 0.14);
}

void ContinuousDrawStrategy::drawBattery(QPainter& painter, const QRectF& rect, int level, int, bool charging,
                                         const BatteryColours& colours)
{
    mColours = colours;
    mDisplayedLevel = level;
    if (mAnimatedLevel < 0)
        mAnimatedLevel = level;
    const double percent = std::clamp(charging ? mAnimatedLevel : level, 0, 100);
    QRectF bar = rect;
    bar.setWidth(rect.width() * percent / 100);
    painter.setPen(Qt::NoPen);
    painter.setBrush(charging ? colours.chargingFill : colours.fill);
    painter.drawRect(bar);
}

void ContinuousDrawStrategy::startAnimation()
{
    mAnimatedLevel = mDisplayedLevel;
    mTimer.start();
}

void ContinuousDrawStrategy::tick()
{
    if (++mAnimatedLevel > 100)
        mAnimatedLevel = 0;
}

SegmentedBlinkStrategy::SegmentedBlinkStrategy(QObject* parent, quint32 segments, double gapRatio, int intervalMs)
    : BatteryDrawStrategy(parent, intervalMs), mSegments(std::max(segments, 1U)), mGapRatio(gapRatio)
{
}

int SegmentedBlinkStrategy::activeSegment(int level, int lowLevel, bool charging) const
{
    const int segments = int(mSegments);
    if (level < 0)
        return -1;
    if (level > 100)
        return segments - 1;
    const int full = segments * level / 100;
    if (full != 0)
        return full;
    if (charging)
        return level > lowLevel ? 1 : 0;
    return level > lowLevel ? 0 : -1;
}

void SegmentedBlinkStrategy::drawBattery(QPainter& painter, const QRectF& rect, int level, int lowLevel, bool charging,
                                         const BatteryColours& colours)
{
    mColours = colours;
    mDisplayedLevel = level;
    const int active = activeSegment(level, lowLevel, charging);
    const double gap = rect.width() * mGapRatio;
    const double width = (rect.width() - (mSegments - 1) * gap) / mSegments;
    painter.setPen(Qt::NoPen);
    painter.setBrush(charging ? colours.chargingFill : colours.fill);
    for (int i = 0; i <= std::min(active, int(mSegments) - 1); ++i) {
        const bool dark = i == active && charging && level != 100 && !mBlinkOn;
        if (!dark)
            painter.drawRect(QRectF(rect.x() + i * (width + gap), rect.y(), width, rect.height()));
    }
}

void SegmentedBlinkStrategy::startAnimation()
{
    mBlinkOn = true;
    mTimer.start();
}

void SegmentedBlinkStrategy::tick()
{
    mBlinkOn = !mBlinkOn;
}
