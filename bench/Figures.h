#pragma once
// Times and their summaries.

#include <QJsonObject>
#include <QString>
#include <algorithm>
#include <cstdint>
#include <ctime>
#include <sys/resource.h>
#include <vector>

namespace bench
{

/// CLOCK_MONOTONIC, which r47d's stamps are of as well.
inline std::int64_t nowNs()
{
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return std::int64_t(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

/// CPU time of this process so far, all threads, user and system.
inline double cpuSeconds()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Adds <name>_p50 and <name>_p99 in microseconds and the count. Nothing without samples, so that a row that was not measured
/// shows.
inline void addPercentiles(QJsonObject& figures, const QString& name, std::vector<std::int64_t> samplesNs)
{
    figures[name + "_count"] = qint64(samplesNs.size());
    if (samplesNs.empty()) {
        return;
    }
    std::sort(samplesNs.begin(), samplesNs.end());
    const auto at = [&](double share) { return double(samplesNs[std::size_t(share * double(samplesNs.size() - 1))]) / 1000; };
    figures[name + "_p50"] = at(0.5);
    figures[name + "_p99"] = at(0.99);
}

/// Share of one core in percent while it lives.
class CpuShare
{
public:
    double percent() const { return (cpuSeconds() - mCpu) / (double(nowNs() - mStart) / 1e9) * 100; }

private:
    double mCpu = cpuSeconds();
    std::int64_t mStart = nowNs();
};

} // namespace bench
