#pragma once

#include <QJsonObject>
#include <QStringList>

namespace bench
{

/// Ten bands loaded: the time of a change of one band and of all, and of the same by complex responses and their product, in
/// microseconds. Takes the number of rounds.
QJsonObject equalizerCurves(const QStringList& arguments);

} // namespace bench
