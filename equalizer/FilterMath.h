#pragma once

#include <QList>
#include <QPointF>
#include <QString>

#include <array>
#include <complex>

/// A band as the equalizer's curves see it. No value has a range here.
struct FilterBand {
    QString name; ///< decimal number of the band
    bool enabled = false;
    qint32 type = 0;        ///< 0 peaking, 1 lowpass, 2 highpass, 3 lowshelf, 4 highshelf
    double frequency = 0.0; ///< Hz
    double gain = 0.0;      ///< dB
    double q = 0.0;
};

/// An analogue section of second order: n0 s² + n1 s + n2 over d0 s² + d1 s + d2.
struct FilterCoefficients {
    std::array<double, 3> numerator{0.0, 0.0, 0.0};
    std::array<double, 3> denominator{1.0, 1.0, 1.0};
};

namespace quillon
{

/// The section of a filter; frequency in Hz, gain in dB. A type that there is not lets nothing through.
FilterCoefficients designFilter(qint32 type, double frequency, double gain, double q);
/// The section of a band; that of a disabled one is flat, whatever it holds.
FilterCoefficients designBand(const FilterBand& band, double flatFrequency);

/// The section's complex response at a frequency in Hz. Both parts are NaN where a polynomial is not finite or the lower one is
/// zero.
std::complex<double> response(const FilterCoefficients& coefficients, double frequency);
/// Magnitude of a response in dB; minus infinity for zero.
double magnitudeDb(const std::complex<double>& response);

/// Writes the section's magnitude in dB at each frequency (Hz) over the points, as many as there are frequencies.
/// Returns the largest distance from 0 dB, infinity when a level is not finite.
double fillCurve(const FilterCoefficients& coefficients, const QList<quint32>& frequencies, QList<QPointF>& points);

} // namespace quillon
