#include "processing/PeakEstimate.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace quillon
{

void PeakEstimate::add(float levelDb)
{
    if (!std::isfinite(levelDb))
        return;
    const auto end = mLoudest.begin() + std::ptrdiff_t(mCount);
    const auto place = std::upper_bound(mLoudest.begin(), end, levelDb, std::greater<>());
    if (place == mLoudest.end())
        return; // ten louder ones are kept already
    if (mCount < kKept)
        ++mCount;
    std::move_backward(place, mLoudest.begin() + std::ptrdiff_t(mCount) - 1, mLoudest.begin() + std::ptrdiff_t(mCount));
    *place = levelDb;
}

float PeakEstimate::levelDb() const
{
    if (!isValid())
        return 0.0F;
    const double sum = std::accumulate(mLoudest.begin() + kSkipped, mLoudest.end(), 0.0);
    return float(sum / double(kAveraged));
}

} // namespace quillon
