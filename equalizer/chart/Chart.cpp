#include "equalizer/chart/Chart.h"

#include <QGraphicsLayout>
#include <QLegend>
#include <QLogValueAxis>
#include <QSplineSeries>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

constexpr QColor kGround{22, 22, 22};
constexpr double kMostDb = 1000; // far outside, but not so far that the painter loses count

const QString kWholeNumbers = u"%g"_s;

/// The points that a painter can place.
QList<QPointF> drawable(const QList<QPointF>& points)
{
    QList<QPointF> list;
    list.reserve(points.size());
    for (const QPointF& point : points) {
        if (point.x() > 0 && std::isfinite(point.x()) && std::isfinite(point.y())) {
            list.append({point.x(), std::clamp(point.y(), -kMostDb, kMostDb)});
        }
    }
    return list;
}

QPen linePen(Qt::PenStyle style, double width)
{
    return {Qt::lightGray, width, style};
}

} // namespace

Chart::Chart(QWidget* parent) : QChartView(parent)
{
    const QChart* replaced = chart();
    setChart(&mChart);
    delete replaced;
    mPlotFrame.setPen(linePen(Qt::SolidLine, 2));
    mPlotFrame.hide();
    scene()->addItem(&mPlotFrame);

    setRenderHint(QPainter::Antialiasing);
    setFrameShape(NoFrame);
    setBackgroundBrush(kGround);
    // It is looked at: a hand goes on to the window, which it moves.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setInteractive(false);
    setFocusPolicy(Qt::NoFocus);
    mChart.setPlotAreaBackgroundVisible(true);
    mChart.legend()->hide();
    mChart.setMargins({});
    mChart.layout()->setContentsMargins(0, 0, 0, 0);
    mChart.setBackgroundRoundness(0);
    mPlotFrame.setRect(mChart.plotArea());
}

void Chart::setupAxes()
{
    auto* frequencies = new QLogValueAxis;
    frequencies->setRange(20, 22000);
    frequencies->setLabelFormat(kWholeNumbers);
    frequencies->setMinorTickCount(8);
    frequencies->setMinorGridLinePen(linePen(Qt::DashLine, 0.3));
    replaceAxis(frequencies, Qt::AlignBottom);
    auto* levels = new QValueAxis;
    levels->setRange(-20, 20);
    levels->setLabelFormat(kWholeNumbers);
    levels->setTickCount(5);
    replaceAxis(levels, Qt::AlignLeft);

    mChart.setBackgroundBrush(kGround);
    mChart.setPlotAreaBackgroundBrush(kGround);
}

void Chart::replaceAxis(QAbstractAxis* axis, Qt::Alignment side)
{
    for (QAbstractAxis* old : mChart.axes()) {
        if (old->alignment() == side) {
            mChart.removeAxis(old);
            delete old;
        }
    }
    axis->setLabelsBrush(Qt::white);
    axis->setLinePen(linePen(Qt::SolidLine, 1));
    axis->setGridLinePen(linePen(Qt::SolidLine, 0.5));
    axis->setLabelsFont(mLabelFont);
    mChart.addAxis(axis, side);
}

void Chart::addSplineSeries(const QString& name, const QColor& colour, double width, int penStyle)
{
    if (name.isEmpty() || mSplineSeries.contains(name)) {
        return;
    }
    auto* series = new QSplineSeries;
    series->setName(name);
    mChart.addSeries(series);
    series->setPen(QPen(colour, width, Qt::PenStyle(penStyle)));
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        if (const auto axes = mChart.axes(orientation); !axes.isEmpty()) {
            series->attachAxis(axes.first());
        }
    }
    mSplineSeries[name].series = series;
}

void Chart::replaceSeries(const QString& name, const QList<QPointF>& points)
{
    if (const auto curve = mSplineSeries.find(name); curve != mSplineSeries.end()) {
        curve->second.points = points;
        book(curve->second);
    }
}

void Chart::setSeriesVisible(const QString& name, bool visible)
{
    const auto curve = mSplineSeries.find(name);
    if (curve != mSplineSeries.end() && std::exchange(curve->second.visible, visible) != visible) {
        book(curve->second);
    }
}

void Chart::book(Curve& curve)
{
    curve.stale = true;
    if (isVisible() && !std::exchange(mBooked, true)) {
        QMetaObject::invokeMethod(this, &Chart::handOver, Qt::QueuedConnection);
    }
}

/// A hidden series with points would still be laid out at every resize.
void Chart::handOver()
{
    mBooked = false;
    if (!isVisible()) {
        return;
    }
    for (auto& [name, curve] : mSplineSeries) {
        if (!std::exchange(curve.stale, false)) {
            continue;
        }
        curve.series->setVisible(curve.visible);
        if (curve.visible || curve.series->count() > 0) {
            curve.series->replace(curve.visible ? drawable(curve.points) : QList<QPointF>());
        }
    }
}

void Chart::setAxisFont(const QFont& font)
{
    mLabelFont = font;
    for (QAbstractAxis* axis : mChart.axes()) {
        axis->setLabelsFont(font);
    }
}

void Chart::showEvent(QShowEvent* event)
{
    handOver();
    QChartView::showEvent(event);
}

void Chart::paintEvent(QPaintEvent* event)
{
    if (const QRectF area = mChart.plotArea(); area != mPlotFrame.rect()) {
        mPlotFrame.setRect(area);
    }
    QChartView::paintEvent(event);
}
