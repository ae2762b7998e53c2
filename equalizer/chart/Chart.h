#pragma once

#include "equalizer/chart/ChartFace.h"

#include <QChart>
#include <QChartView>
#include <QFont>
#include <QGraphicsRectItem>
#include <QList>
#include <QPointF>

#include <map>

class QSplineSeries;

/// What curves are to show is booked and handed to the drawing once in a pass of the event loop, and not before the chart is seen:
/// each hand-over has the spline of all points computed anew. A hidden curve costs nothing.
class Chart : public QChartView, public ChartFace
{
    Q_OBJECT
public:
    explicit Chart(QWidget* parent = nullptr);

    QWidget& widget() override { return *this; }
    void setupAxes() override;
    void addSplineSeries(const QString& name, const QColor& colour, double width, int penStyle) override;
    void replaceSeries(const QString& name, const QList<QPointF>& points) override;
    void setSeriesVisible(const QString& name, bool visible) override;
    void setAxisFont(const QFont& font) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Curve {
        QSplineSeries* series = nullptr; // owned by the chart
        QList<QPointF> points;
        bool visible = true;
        bool stale = false; // the series does not show this yet
    };

    void replaceAxis(QAbstractAxis* axis, Qt::Alignment side);
    void book(Curve& curve);
    void handOver();

    QChart mChart; // goes before the view and its scene
    QFont mLabelFont;
    QGraphicsRectItem mPlotFrame;
    std::map<QString, Curve> mSplineSeries;
    bool mBooked = false;
};
