#include "equalizer/FilterMath.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillon
{

namespace
{

constexpr double kTwoPi = 6.283185307179586;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kDbPerPowerLog = 4.342944819032518; // 10 / ln 10

/// Smith's division: scaled by the divisor's larger component, so that its square cannot overflow.
std::complex<double> divide(const std::complex<double>& n, const std::complex<double>& d)
{
    const bool finite = std::isfinite(n.real()) && std::isfinite(n.imag()) && std::isfinite(d.real()) && std::isfinite(d.imag());
    if (!finite || (d.real() == 0.0 && d.imag() == 0.0))
        return {kNan, kNan};
    if (std::abs(d.real()) >= std::abs(d.imag())) {
        const double ratio = d.imag() / d.real();
        const double scale = d.real() + d.imag() * ratio;
        return {(n.real() + n.imag() * ratio) / scale, (n.imag() - n.real() * ratio) / scale};
    }
    const double ratio = d.real() / d.imag();
    const double scale = d.real() * ratio + d.imag();
    return {(n.real() * ratio + n.imag()) / scale, (n.imag() * ratio - n.real()) / scale};
}

/// Squares of these over any grid neither overflow nor lose digits to underflow.
bool isModest(double coefficient)
{
    const double size = std::abs(coefficient);
    return size == 0.0 || (size > 1e-60 && size < 1e60);
}

/// The squared magnitudes can be had without complex division: all in range, and a lower polynomial that has no zero.
bool isModest(const FilterCoefficients& c)
{
    const auto modest = [](double coefficient) { return isModest(coefficient); };
    return std::all_of(c.numerator.begin(), c.numerator.end(), modest) &&
           std::all_of(c.denominator.begin(), c.denominator.end(), modest) && c.denominator[1] != 0.0;
}

} // namespace

FilterCoefficients designFilter(qint32 type, double frequency, double gain, double q)
{
    const double w = frequency * kTwoPi;
    const double w2 = w * w;
    const double a = std::sqrt(std::pow(10.0, gain / 20.0));
    const double r = std::sqrt(a);
    switch (type) {
    case 0:
        return {{1.0, a * w / q, w2}, {1.0, w / (a * q), w2}};
    case 1:
        return {{0.0, 0.0, w2}, {1.0, w / q, w2}};
    case 2:
        return {{1.0, 0.0, 0.0}, {1.0, w / q, w2}};
    case 3:
        return {{1.0, r * w / q, a * w2}, {1.0, w / (r * q), w2 / a}};
    case 4:
        return {{a, r * w / q, w2}, {1.0 / a, w / (r * q), w2}};
    default:
        return {};
    }
}

FilterCoefficients designBand(const FilterBand& band, double flatFrequency)
{
    return band.enabled ? designFilter(band.type, band.frequency, band.gain, band.q) : designFilter(0, flatFrequency, 0.0, 0.707);
}

std::complex<double> response(const FilterCoefficients& coefficients, double frequency)
{
    const double w = frequency * kTwoPi;
    const double w2 = w * w;
    const auto at = [w, w2](const std::array<double, 3>& c) { return std::complex<double>(c[2] - c[0] * w2, c[1] * w); };
    return divide(at(coefficients.numerator), at(coefficients.denominator));
}

double magnitudeDb(const std::complex<double>& response)
{
    return 20.0 * std::log10(std::hypot(response.real(), response.imag()));
}

double fillCurve(const FilterCoefficients& coefficients, const QList<quint32>& frequencies, QList<QPointF>& points)
{
    points.resize(frequencies.size());
    QPointF* point = points.data();
    double reach = 0.0;
    if (!isModest(coefficients)) {
        for (const quint32 frequency : frequencies) {
            const double level = magnitudeDb(response(coefficients, frequency));
            reach = std::isfinite(level) ? std::max(reach, std::abs(level)) : kInfinity;
            *point++ = QPointF(frequency, level);
        }
        return reach;
    }
    const auto [n0, n1, n2] = coefficients.numerator;
    const auto [d0, d1, d2] = coefficients.denominator;
    for (const quint32 frequency : frequencies) {
        const double w = frequency * kTwoPi;
        const double w2 = w * w;
        const double upper = n2 - n0 * w2;
        const double lower = d2 - d0 * w2;
        const double power = (upper * upper + n1 * n1 * w2) / (lower * lower + d1 * d1 * w2);
        const double level = kDbPerPowerLog * std::log(power);
        reach = std::max(reach, std::abs(level));
        *point++ = QPointF(frequency, level);
    }
    return reach;
}

} // namespace quillon
