#include "controls/meter/MeterPaint.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

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

} // namespace

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
    for (qsizetype i = 0; i < layout.lanes.size(); ++i) {
        const MeterLane& lane = layout.lanes[i];
        if (lane.scaleSide == 0)
            continue;
        const QRect& bar = lane.bar;
        const int edge = lane.scaleSide > 0 ? bar.x() + bar.width() : bar.x();
        const int tick = lane.scaleSide * bar.width() / 4;
        for (const MeterMark& mark : scene.shape->marks) {
            const float y = float(bar.y()) + layout.pixelsPerDb(i) * float(mark.belowTopDb);
            const QString label = mark.label.toString();
            if (i == 0 || layout.lanes[0].scaleSide == 0) // one column of numbers serves both sides
                painter.drawText(QPointF(layout.scale.x() + (layout.scale.width() - metrics.horizontalAdvance(label)) / 2.0, y),
                                 label);
            if (!scene.scaleLinesHidden)
                painter.drawLine(QPointF(edge, y + 1), QPointF(edge + tick, y + 1));
        }
    }
}

void paintMeterBar(QPainter& painter, const MeterScene& scene, const MeterLayout& layout, qsizetype lane, int levelDb)
{
    const QRect filled = layout.filled(lane, levelDb);
    if (filled.isEmpty())
        return;
    const QRect& bar = layout.lanes[lane].bar;
    QLinearGradient gradient(bar.topLeft(), QPointF(bar.x(), bar.y() + bar.height()));
    for (size_t i = 0; i < kGradient.size(); ++i)
        gradient.setColorAt(scene.shape->stops[i], QColor(kGradient[i]));
    const double radius = bar.width() * scene.shape->barRadius;
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
        if (scene.shape->textRow && i < moments.size())
            paintMeterText(painter, scene, lane, moments[i].hold);
        paintLamp(painter, scene, lane.lamp, i < moments.size() && moments[i].clip);
        const double radius = lane.bar.width() * scene.shape->barRadius;
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(kOff));
        painter.drawRoundedRect(lane.bar, radius, radius);
        if (i < moments.size())
            paintMeterBar(painter, scene, layout, i, moments[i].level);
    }
    paintMeterScale(painter, scene, layout);
}

} // namespace quillon
