#include "equalizer/EqualizerTool.h"

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;
using quillon::fillCurve;
using quillon::magnitudeDb;

namespace
{

/// Below this sum of the bands' reaches no product of their magnitudes leaves the range of a double, in whatever order.
constexpr double kSafeReachDb = 5900.0;

/// Writes a curve, for each point of the grid the level that is told by its index.
template<typename Level> void rewrite(QList<QPointF>& curve, const QList<quint32>& frequencies, Level level)
{
    curve.resize(frequencies.size());
    QPointF* points = curve.data();
    for (qsizetype i = 0; i < frequencies.size(); ++i)
        points[i] = QPointF(frequencies[i], level(i));
}

} // namespace

EqualizerTool::EqualizerTool(quint32 minFrequency, quint32 maxFrequency, quint32 sampleCount, bool logSampleCount, QObject* parent)
    : QObject(parent), mLanguage(u"English"_s), mMinFrequency(minFrequency)
{
    const quint32 ratio = minFrequency == 0 ? 0 : maxFrequency / minFrequency;
    const double step = std::log(double(ratio)) / sampleCount;
    quint32 last = 0;
    for (quint32 i = 0; ratio != 0 && i < sampleCount; ++i) {
        const auto frequency = quint32(std::exp(i * step) * minFrequency);
        if (frequency != last)
            mFrequencies.append(frequency);
        last = frequency;
    }
    mSum.resize(std::size_t(mFrequencies.size()));
    for (int index = 0; index < CurveCount; ++index) {
        mCurves[std::size_t(index)].fill(QPointF(minFrequency, 0.0), mFrequencies.size());
        if (index < Combined)
            rewrite(mCurves[std::size_t(index)], mFrequencies, [](qsizetype) { return 0.0; });
    }
    if (logSampleCount)
        qWarning("EqualizerTool::EqualizerTool //SampleCount Request[%u] Actual[%lld]", sampleCount,
                 qlonglong(mFrequencies.size()));
}

void EqualizerTool::setPreGain(double preGain)
{
    mPreGain = preGain;
    calculateCombined();
    calculateFiltered();
}

void EqualizerTool::updateBands(const QList<FilterBand>& bands, double)
{
    if (bands.size() >= 2)
        mBands.clear();
    for (const FilterBand& settings : bands) {
        Band& band = mBands[settings.name];
        band.settings = settings;
        band.exists = true;
        calculateBand(band);
    }
    calculateCombined();
    calculateFiltered();
}

QList<FilterBand> EqualizerTool::bands() const
{
    QList<FilterBand> bands;
    for (const auto& [name, band] : mBands) {
        if (band.exists)
            bands.append(band.settings);
    }
    return bands;
}

int EqualizerTool::curveIndex(const QString& name)
{
    static constexpr std::array<QLatin1StringView, CurveCount> kNames{"Target"_L1,
                                                                      "TargetRaw"_L1,
                                                                      "TargetCompensated"_L1,
                                                                      "Source"_L1,
                                                                      "SourceRaw"_L1,
                                                                      "SourceCompensated"_L1,
                                                                      "Combined"_L1,
                                                                      "FilteredRaw"_L1,
                                                                      "FilteredRawAlignment"_L1,
                                                                      "FilteredCompensated"_L1,
                                                                      "FilteredCompensatedAlignment"_L1};
    return int(std::find(kNames.begin(), kNames.end(), name) - kNames.begin());
}

const QList<QPointF>& EqualizerTool::curve(const QString& name)
{
    const int index = curveIndex(name);
    return index < CurveCount ? mCurves[std::size_t(index)] : mBands[name].curve;
}

void EqualizerTool::calculateBand(Band& band)
{
    band.coefficients = quillon::designBand(band.settings, mMinFrequency);
    band.reachDb = fillCurve(band.coefficients, mFrequencies, band.curve);
}

void EqualizerTool::calculateCombined()
{
    double reach = 0.0;
    for (const auto& [name, band] : mBands)
        reach += band.reachDb;
    if (reach < kSafeReachDb) {
        // The level of a product of responses is the sum of their levels, which are there already.
        std::fill(mSum.begin(), mSum.end(), 0.0);
        for (const auto& [name, band] : mBands) {
            const QPointF* point = band.curve.constData();
            for (qsizetype i = 0; i < band.curve.size(); ++i)
                mSum[std::size_t(i)] += point[i].y();
        }
    } else {
        // Where the product overflows, vanishes or is no number, so does the curve.
        for (qsizetype i = 0; i < mFrequencies.size(); ++i) {
            std::complex<double> product(1.0, 0.0);
            for (const auto& [name, band] : mBands) {
                if (band.exists)
                    product *= quillon::response(band.coefficients, mFrequencies[i]);
            }
            mSum[std::size_t(i)] = magnitudeDb(product);
        }
    }
    rewrite(mCurves[Combined], mFrequencies, [this](qsizetype i) { return mSum[std::size_t(i)] + mPreGain; });
}

void EqualizerTool::calculateFiltered()
{
    if (mFrequencies.isEmpty())
        return;
    const QPointF* source = mCurves[Source].constData();
    const QPointF* combined = mCurves[Combined].constData();
    const QPointF* target = mCurves[Target].constData();
    const qsizetype mid = mFrequencies.size() / 2;
    const double sourceMid = source[mid].y();
    const double combinedMid = combined[mid].y();

    const auto raw = [=](qsizetype i) { return source[i].y() + combined[i].y(); };
    rewrite(mCurves[FilteredRaw], mFrequencies, raw);
    rewrite(mCurves[FilteredRawAlignment], mFrequencies, [=](qsizetype i) { return raw(i) - sourceMid - combinedMid; });
    rewrite(mCurves[FilteredCompensated], mFrequencies, [=](qsizetype i) { return raw(i) - target[i].y(); });
    rewrite(mCurves[FilteredCompensatedAlignment], mFrequencies,
            [=](qsizetype i) { return raw(i) - sourceMid - combinedMid - target[i].y(); });
}

void EqualizerTool::refreshTarget()
{
    const QPointF* target = mCurves[Target].constData();
    rewrite(mCurves[TargetRaw], mFrequencies, [=](qsizetype i) { return target[i].y(); });
    rewrite(mCurves[TargetCompensated], mFrequencies, [](qsizetype) { return 0.0; });
}

void EqualizerTool::refreshSource()
{
    const QPointF* source = mCurves[Source].constData();
    const QPointF* target = mCurves[Target].constData();
    rewrite(mCurves[SourceRaw], mFrequencies, [=](qsizetype i) { return source[i].y(); });
    rewrite(mCurves[SourceCompensated], mFrequencies, [=](qsizetype i) { return source[i].y() - target[i].y(); });
}
