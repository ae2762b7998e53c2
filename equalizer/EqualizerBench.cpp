// What one turn of a dial costs the equalizer's curves, beside the plain way.

#include "equalizer/EqualizerBench.h"

#include "bench/Figures.h"
#include "equalizer/EqualizerTool.h"

namespace bench
{

namespace
{

constexpr int kBands = 10;

FilterBand band(int number, int round)
{
    return {QString::number(number + 1), true, number % 5, 30.0 * (1 << number), (round + number) % 24 - 12.0, 0.7 + number % 3};
}

/// Complex responses of all bands, their product at each point, and the magnitude of both.
class PlainCurves
{
public:
    explicit PlainCurves(const QList<quint32>& grid) : mGrid(grid), mCombined(grid.size()) {}

    void updateBand(const FilterBand& settings, int number)
    {
        const FilterCoefficients coefficients = quillon::designBand(settings, mGrid.first());
        mResponses[number].clear();
        mCurves[number].clear();
        for (const quint32 frequency : mGrid) {
            mResponses[number].append(quillon::response(coefficients, frequency));
            mCurves[number].append(QPointF(frequency, quillon::magnitudeDb(mResponses[number].constLast())));
        }
    }
    void combine()
    {
        mCombined.clear();
        for (qsizetype i = 0; i < mGrid.size(); ++i) {
            std::complex<double> product(1.0, 0.0);
            for (const auto& response : mResponses)
                product *= response[i];
            mCombined.append(QPointF(mGrid[i], quillon::magnitudeDb(product)));
        }
        for (auto& filtered : mFiltered) {
            filtered.clear();
            for (const QPointF& point : mCombined)
                filtered.append(point);
        }
    }

private:
    const QList<quint32>& mGrid;
    QList<std::complex<double>> mResponses[kBands];
    QList<QPointF> mCurves[kBands];
    QList<QPointF> mCombined;
    QList<QPointF> mFiltered[4];
};

template<typename Step> std::vector<std::int64_t> timeRounds(int rounds, Step step)
{
    std::vector<std::int64_t> samples;
    for (int round = 0; round < rounds; ++round) {
        const std::int64_t begin = nowNs();
        step(round);
        samples.push_back(nowNs() - begin);
    }
    return samples;
}

} // namespace

QJsonObject equalizerCurves(const QStringList& arguments)
{
    const int rounds = arguments[0].toInt();
    EqualizerTool tool(20, 22000, 676, false);
    PlainCurves plain(tool.frequencies());
    const auto all = [&](int round) {
        QList<FilterBand> bands;
        for (int number = 0; number < kBands; ++number)
            bands.append(band(number, round));
        tool.updateBands(bands);
    };
    const auto plainAll = [&](int round) {
        for (int number = 0; number < kBands; ++number)
            plain.updateBand(band(number, round), number);
        plain.combine();
    };
    all(0);
    plainAll(0);

    QJsonObject figures;
    addPercentiles(figures, "equalizer_one",
                   timeRounds(rounds, [&](int round) { tool.updateBands({band(round % kBands, round)}); }));
    addPercentiles(figures, "equalizer_all", timeRounds(rounds, all));
    addPercentiles(figures, "equalizer_plain_one", timeRounds(rounds, [&](int round) {
                       plain.updateBand(band(round % kBands, round), round % kBands);
                       plain.combine();
                   }));
    addPercentiles(figures, "equalizer_plain_all", timeRounds(rounds, plainAll));
    return figures;
}

} // namespace bench
