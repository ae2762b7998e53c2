#include "equalizer/chart/Chart.h"

namespace quillon
{

class ChartModule : public QObject, public ChartFactory
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Quillon.ChartFactory/1")
    Q_INTERFACES(ChartFactory)
public:
    ChartFace* make(QWidget* parent) override { return new Chart(parent); }
};

} // namespace quillon

#include "ChartModule.moc"
