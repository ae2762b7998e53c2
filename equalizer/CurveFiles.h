#pragma once

#include "equalizer/FilterMath.h"

#include <QByteArray>

#include <optional>
#include <vector>

// The equalizer's text files. Numbers have a decimal point whatever the locale; a field that is no number counts as 0.

namespace quillon
{

/// Rows of a measured frequency response, frequencies in Hz strictly ascending, at least two.
struct ResponseRows {
    std::vector<double> frequencies;
    std::vector<double> levels; ///< dB
};

/// What a filter parameter file holds.
struct BandSet {
    std::optional<double> preGain; ///< dB
    QList<FilterBand> bands;
};

/// The most bytes that one of these files may have; a larger one is none.
inline constexpr qint64 kMostCurveBytes = 64 << 20;
/// The most band rows of a file: each becomes a whole curve.
inline constexpr qsizetype kMostBandRows = 1024;

/// The rows behind the header line. Nothing without one, with fewer than two rows, with a row of fewer than two fields, or when the
/// frequencies are not finite or do not ascend.
std::optional<ResponseRows> parseResponse(QByteArrayView text);
/// The rows behind the marker line. Nothing without one or with too many bands; unknown rows are passed over.
std::optional<BandSet> parseBandSet(QByteArrayView text);

/// Header and one row a point, six significant digits.
QByteArray responseText(const QList<QPointF>& points);
/// Marker, pre-gain and one row a band, six significant digits. Takes preGain in dB.
QByteArray bandSetText(double preGain, const QList<FilterBand>& bands);

/// All bytes of a plain file as UTF-8 without byte-order mark, or nothing when it cannot be read. Empty for one that is too large.
std::optional<QByteArray> readCurveFile(const QString& path);
/// Replaces the file as a whole, with the line ends of the platform. False leaves what was there.
bool writeCurveFile(const QString& path, const QByteArray& text);

/// Path of a strip's copy of an imported response beside its workspace: folder (absolute), the strip's object name, and "Target"
/// or "Source".
QString curveCachePath(const QString& folder, const QString& objectName, const QString& curve);
/// Puts the chosen file in the place of the copy, as a whole. False when it could not be copied; the old copy stays then.
bool storeCurveCache(const QString& chosenPath, const QString& cachePath);
/// There is something to import in the copy. Makes an empty file where there is none: it stands for an import that never was.
bool hasCurveCache(const QString& cachePath);

} // namespace quillon
