#pragma once

#include <QList>
#include <QtPlugin>

class QColor;
class QFont;
class QPointF;
class QString;
class QWidget;

/// Named curves over a logarithmic axis of frequencies and a linear one of levels. It knows nothing of filters. Unknown names are
/// ignored. GUI thread.
class ChartFace
{
public:
    virtual ~ChartFace() = default;

    virtual QWidget& widget() = 0;
    /// The axes, 20 Hz to 22 kHz and -20 to 20 dB. A series that is added before has none.
    virtual void setupAxes() = 0;
    /// width in pixels; penStyle: a Qt::PenStyle. An empty name and one that is there already are ignored.
    virtual void addSplineSeries(const QString& name, const QColor& colour, double width, int penStyle) = 0;
    /// In Hz and dB, by ascending frequency. Points that cannot be drawn are left out.
    virtual void replaceSeries(const QString& name, const QList<QPointF>& points) = 0;
    virtual void setSeriesVisible(const QString& name, bool visible) = 0;
    /// Of the numbers at both axes, present and to come.
    virtual void setAxisFont(const QFont& font) = 0;
};

/// What the chart's module gives to the program.
class ChartFactory
{
public:
    virtual ~ChartFactory() = default;

    /// Owned by parent.
    virtual ChartFace* make(QWidget* parent) = 0;
};

Q_DECLARE_INTERFACE(ChartFactory, "Quillon.ChartFactory/1")
