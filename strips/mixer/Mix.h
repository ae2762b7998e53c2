#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <vector>

namespace quillon
{

/// A mix of a mixer field, and what its strips have to know of it while another one is shown.
struct Mix {
    QString key;         // "MixA", as workspace and device have it
    QString name;        // "Mix A"
    QColor colour;       // of what stands for this mix
    QStringList visible; // channel names of the strips in it
    int soloCount = 0;
};
using Mixes = std::vector<Mix>;

} // namespace quillon
