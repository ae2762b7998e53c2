#pragma once

#include <QChart>
#include <QChartView>
#include <QFont>
#include <QGraphicsRectItem>
#include <QList>
#include <QPointF>

#include <map>

class QSplineSeries;

/// Named curves over a logarithmic axis of frequencies and a linear one of levels. It knows nothing of filters. Unknown names are
/// ignored. GUI thread.
///
/// What curves are to show is booked and handed to the drawing once in a pass of the event loop, and not before the chart is seen:
/// each hand-over has the spline of all points computed anew. Points that cannot be drawn are left out. A hidden curve costs
/// nothing.
class Chart : public QChartView
{
    Q_OBJECT
public:
    explicit Chart(QWidget* parent = nullptr);

    /// The axes, 20 Hz to 22 kHz and -20 to 20 dB. A series that is added before has none.
    void setupAxes();
    /// width in pixels; penStyle: a Qt::PenStyle. An empty name and one that is there already are ignored.
    void addSplineSeries(const QString& name, const QColor& colour, double width, int penStyle);
    /// In Hz and dB, by ascending frequency.
    void replaceSeries(const QString& name, const QList<QPointF>& points);
    void setSeriesVisible(const QString& name, bool visible);
    /// Of the numbers at both axes, present and to come.
    void setAxisFont(const QFont& font);

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
