#include "controls/meter/MeterPaint.h"

#include "app/GlobalFont.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace quillon
{

namespace
{

constexpr QRgb kInk = qRgb(161, 161, 161);
constexpr QRgb kHot = qRgb(186, 113, 68);
constexpr QRgb kRed = qRgb(246, 72, 71);
constexpr QRgb kOff = qRgb(60, 60, 60);
constexpr QRgb kLampEdge = qRgb(255, 176, 172);
constexpr std::array kGradient = {qRgb(0xf6, 0x48, 0x47), qRgb(0xa7, 0x7d, 0x43), qRgb(0x0f, 0x96, 0x40), qRgb(0x00, 0x96, 0x41)};
constexpr int kHotDb = -8; // from here up the number turns amber

/// The latch is told by a lighter edge as well as by its colour. Filled, not stroked: a stroke thinner than a pixel reaches out of
/// the lamp, which is all that is painted anew when it changes.
void paintLamp(QPainter& painter, const MeterScene& scene, const QRect& lamp, bool lit)
{
    const double radius = lamp.height() * scene.shape->lampRadius;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(lit ? kLampEdge : kOff));
    painter.drawRoundedRect(lamp, radius, radius);
    if (!lit)
        return;
    const double edge = std::min(1.0, lamp.height() / 8.0); // a flat lamp stays red in the first place
    painter.setBrush(QColor(kRed));
    painter.drawRoundedRect(QRectF(lamp).adjusted(edge, edge, -edge, -edge), radius, radius);
}

/// Centred in the scale, its baseline at the mark. One column of numbers serves all bars.
void paintLabel(QPainter& painter, const MeterLayout& layout, const MeterMark& mark, const QFontMetrics& metrics)
{
    const QString label = mark.label.toString();
    const float y = float(layout.lanes[0].bar.y()) + layout.pixelsPerDb(0) * float(mark.fromStartDb);
    painter.drawText(QPointF(layout.scale.x() + (layout.scale.width() - metrics.horizontalAdvance(label)) / 2.0, y), label);
}

/// Centred at the mark, as far as the widget has room beside it.
void paintLabelAcross(QPainter& painter, const MeterScene& scene, const MeterLayout& layout, const MeterMark& mark,
                      const QFontMetrics& metrics)
{
    const QString label = mark.label.toString();
    const int width = metrics.horizontalAdvance(label);
    const float x = float(layout.scale.x()) + layout.pixelsPerDb(0) * float(mark.fromStartDb);
    const double left = std::clamp(x - width / 2.0, 0.0, double(std::max(0, scene.size.width() - width)));
    painter.drawText(QPointF(left, layout.scale.y() + (layout.scale.height() - metrics.height()) / 2.0 + metrics.ascent()), label);
}

/// A text row of no height has no number.
bool hasNumber(const MeterScene& scene, const MeterLane& lane)
{
    return scene.shape->textRow && lane.text.height() > 0;
}

/// Of the corners.
double barRadius(const MeterScene& scene, const MeterLayout& layout, const QRect& bar)
{
    return (layout.orientation == Qt::Vertical ? bar.width() : bar.height()) * scene.shape->barRadius;
}

} // namespace

QFont meterFont(const QFont& font, const MeterShape& shape, const MeterLayout& layout)
{
    const GlobalFont& fonts = GlobalFont::instance();
    const QString sample = shape.sample.toString();
    const auto pointSize = [&] {
        if (shape.orientation == Qt::Horizontal) {
            // The first marks stand 6 dB apart; their labels, side by side, keep clear of each other.
            constexpr double kLabelDb = 5;
            const int width = std::min(layout.scale.width(), int(std::lround(layout.pixelsPerDb(0) * kLabelDb)));
            return std::max(1, fonts.pointSizeForRect(font, sample, {layout.scale.topLeft(), QSize(width, layout.scale.height())}));
        }
        // On a broad and low scale the labels of the first marks, 6 dB apart, would run into each other.
        constexpr int kLineDb = 8;
        const QSize room(layout.scale.width(), int(layout.pixelsPerDb(0) * kLineDb));
        return std::min(fonts.pointSizeForWidth(font, sample, room.width()), fonts.pointSizeForHeight(font, room.height()));
    };
    QFont fitted = font;
    fitted.setPointSize(pointSize());
    return fitted;
}

QColor meterBackground()
{
    return {22, 22, 22, 255};
}

void paintMeterText(QPainter& painter, const MeterScene& scene, const MeterLane& lane, int holdDb)
{
    painter.setPen(QColor(holdDb == 0 ? kRed : holdDb >= kHotDb ? kHot : kInk));
    const QString text = QString::number(double(holdDb), 'f', 0);
    const double left = lane.text.x() + (lane.text.width() - QFontMetrics(scene.font).horizontalAdvance(text)) / 2.0;
    painter.drawText(QPointF(left, lane.text.y() + lane.text.height()), text);
}

QRect meterTextArea(const MeterScene& scene, const MeterLane& lane)
{
    if (!hasNumber(scene, lane))
        return {};
    const QFontMetrics metrics(scene.font);
    const int width = metrics.horizontalAdvance(QStringLiteral("-88")) + 4;
    const int baseline = lane.text.y() + lane.text.height();
    // A pixel below the baseline, over which round digits hang.
    return {lane.text.x() + (lane.text.width() - width) / 2, baseline - metrics.ascent(), width, metrics.ascent() + 1};
}

void paintMeterScale(QPainter& painter, const MeterScene& scene, const MeterLayout& layout)
{
    painter.setPen(QPen(QColor(kInk), 1, Qt::SolidLine, Qt::FlatCap)); // ticks end at the bar
    painter.setFont(scene.font);
    painter.setBrush(Qt::NoBrush);
    const QFontMetrics metrics(scene.font);
    const bool upright = layout.orientation == Qt::Vertical;
    for (const MeterMark& mark : scene.shape->marks) {
        if (!(scene.hidden & ScaleLabels) && !layout.scale.isEmpty())
            upright ? paintLabel(painter, layout, mark, metrics) : paintLabelAcross(painter, scene, layout, mark, metrics);
        if (scene.hidden & ScaleLines)
            continue;
        for (qsizetype i = 0; i < layout.lanes.size(); ++i) {
            const MeterLane& lane = layout.lanes[i];
            const QRect& bar = lane.bar;
            const float at = layout.pixelsPerDb(i) * float(mark.fromStartDb);
            if (!upright) {
                const double x = std::floor(bar.x() + at) + 0.5;
                const int bottom = bar.y() + bar.height();
                painter.drawLine(QPointF(x, bottom), QPointF(x, bottom + std::lround(bar.height() * 0.25)));
            } else if (lane.scaleSide != 0) {
                const int edge = lane.scaleSide > 0 ? bar.x() + bar.width() : bar.x();
                const double y = std::floor(bar.y() + at + 1) + 0.5; // on a row of pixels, not between two
                const int tick = lane.scaleSide * bar.width() / 4;
                painter.drawLine(QPointF(edge, y), QPointF(edge + tick, y));
            }
        }
    }
}

void paintMeterBar(QPainter& painter, const MeterScene& scene, const MeterLayout& layout, qsizetype lane, int levelDb)
{
    const QRect filled = layout.filled(lane, levelDb);
    if (filled.isEmpty())
        return;
    const QRect& bar = layout.lanes[lane].bar;
    const bool upright = layout.orientation == Qt::Vertical;
    QLinearGradient gradient(upright ? QPointF(bar.topLeft()) : QPointF(bar.x() + bar.width(), bar.y()),
                             upright ? QPointF(bar.x(), bar.y() + bar.height()) : QPointF(bar.topLeft()));
    for (size_t i = 0; i < kGradient.size(); ++i)
        gradient.setColorAt(scene.shape->stops[i], QColor(kGradient[i]));
    const double radius = barRadius(scene, layout, bar);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(filled, radius, radius);
}

void paintMeter(QPainter& painter, const MeterScene& scene, const MeterLayout& layout, const MeterMoments& moments)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.fillRect(QRect(QPoint(), scene.size), meterBackground());
    painter.setFont(scene.font);
    for (qsizetype i = 0; i < layout.lanes.size(); ++i) {
        const MeterLane& lane = layout.lanes[i];
        if (!lane.shown)
            continue;
        if (hasNumber(scene, lane))
            paintMeterText(painter, scene, lane, moments[i].hold);
        paintLamp(painter, scene, lane.lamp, moments[i].clip);
        const double radius = barRadius(scene, layout, lane.bar);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(kOff));
        painter.drawRoundedRect(lane.bar, radius, radius);
        paintMeterBar(painter, scene, layout, i, moments[i].level);
    }
    paintMeterScale(painter, scene, layout);
}

} // namespace quillon
