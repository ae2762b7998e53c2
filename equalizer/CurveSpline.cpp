#include "equalizer/CurveSpline.h"

#include <algorithm>

namespace quillon
{

CurveSpline::CurveSpline(std::vector<double> frequencies, std::vector<double> levels)
    : mX(std::move(frequencies)), mY(std::move(levels)), mC(mX.size(), 0.0)
{
    solve();
}

void CurveSpline::solve()
{
    // One band on each side of the diagonal, which dominates: no pivoting. Each row is scaled by its diagonal, so that only the
    // upper band has to be kept. Both ends are 0.
    const std::size_t last = mX.size() - 1;
    std::vector<double> upper(mX.size(), 0.0);
    for (std::size_t i = 1; i < last; ++i) {
        const double before = mX[i] - mX[i - 1];
        const double behind = mX[i + 1] - mX[i];
        const double bend = (mY[i + 1] - mY[i]) / behind - (mY[i] - mY[i - 1]) / before;
        const double scale = 1.0 / (2.0 / 3.0 * (mX[i + 1] - mX[i - 1]) - before / 3.0 * upper[i - 1]);
        upper[i] = behind / 3.0 * scale;
        mC[i] = (bend - before / 3.0 * mC[i - 1]) * scale;
    }
    for (std::size_t i = last; i-- > 1;)
        mC[i] -= upper[i] * mC[i + 1];
}

double CurveSpline::at(double frequency) const
{
    const auto slope = [this](std::size_t i) {
        const double h = mX[i + 1] - mX[i];
        return (mY[i + 1] - mY[i]) / h - (2.0 * mC[i] + mC[i + 1]) * h / 3.0;
    };
    const auto cubic = [this](std::size_t i) { return (mC[i + 1] - mC[i]) / (3.0 * (mX[i + 1] - mX[i])); };

    const std::size_t last = mX.size() - 1;
    if (frequency > mX[last]) {
        const double step = mX[last] - mX[last - 1];
        const double endSlope = 3.0 * cubic(last - 1) * step * step + 2.0 * mC[last - 1] * step + slope(last - 1);
        const double h = frequency - mX[last];
        return (mC[last] * h + endSlope) * h + mY[last];
    }
    const auto above = std::size_t(std::upper_bound(mX.begin(), mX.end(), frequency) - mX.begin());
    const std::size_t i = above == 0 ? 0 : above - 1;
    const double h = frequency - mX[i];
    if (frequency < mX[0])
        return (mC[0] * h + slope(0)) * h + mY[0];
    if (i == last)
        return mY[last]; // the last row itself
    return ((cubic(i) * h + mC[i]) * h + slope(i)) * h + mY[i];
}

} // namespace quillon
