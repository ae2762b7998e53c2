#pragma once

#include "equalizer/chart/ChartFace.h"

#include <QStringList>

namespace quillon
{

/// Where the chart's module can be: beside the program, or in lib/quillon beside its folder or one of the two above.
QStringList chartFolders();

/// A chart, by the module in one of the folders, which is loaded by the first call. Without a module a warning, and a chart that
/// shows nothing. Owned by parent.
ChartFace* makeChart(QWidget* parent, const QStringList& folders = chartFolders());

} // namespace quillon
