#pragma once

#include <vector>

namespace quillon
{

/// A natural cubic spline over rows of a measurement, on linear frequency. Outside of the rows it runs on straight, with the
/// slope of that end.
class CurveSpline
{
public:
    /// Frequencies in Hz, at least two, strictly ascending, as many levels (dB).
    CurveSpline(std::vector<double> frequencies, std::vector<double> levels);

    /// Level in dB at a frequency in Hz.
    double at(double frequency) const;

private:
    void solve();

    std::vector<double> mX;
    std::vector<double> mY;
    std::vector<double> mC; // half of the second derivative at each row
};

} // namespace quillon
