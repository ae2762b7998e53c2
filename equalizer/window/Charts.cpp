#include "equalizer/window/Charts.h"

#include <QCoreApplication>
#include <QPluginLoader>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

class NoChart : public QWidget, public ChartFace
{
public:
    using QWidget::QWidget;

    QWidget& widget() override { return *this; }
    void setupAxes() override {}
    void addSplineSeries(const QString&, const QColor&, double, int) override {}
    void replaceSeries(const QString&, const QList<QPointF>&) override {}
    void setSeriesVisible(const QString&, bool) override {}
    void setAxisFont(const QFont&) override {}
};

} // namespace

QStringList chartFolders()
{
    const QString program = QCoreApplication::applicationDirPath();
    return {program, program + u"/../lib/quillon"_s, program + u"/../../lib/quillon"_s, program + u"/../../../lib/quillon"_s};
}

ChartFace* makeChart(QWidget* parent, const QStringList& folders)
{
    QString reason;
    for (const QString& folder : folders) {
        QPluginLoader module(folder + u"/chart"_s);
        if (auto* factory = qobject_cast<ChartFactory*>(module.instance())) {
            return factory->make(parent);
        }
        if (reason.isEmpty() || !module.fileName().isEmpty()) { // one that is there and does not fit says more than one that is not
            reason = module.errorString();
        }
    }
    qWarning().noquote() << "makeChart // no module of the chart:" << reason;
    return new NoChart(parent);
}

} // namespace quillon
