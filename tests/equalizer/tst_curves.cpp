#include "equalizer/CurveSpline.h"
#include "equalizer/EqualizerTool.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace
{

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// Equal within 1e-9 dB; an infinity or NaN equals its like only.
bool agree(double got, double wanted)
{
    return std::isfinite(wanted) ? std::abs(got - wanted) < 1e-9 : got == wanted || (std::isnan(got) && std::isnan(wanted));
}

void compare(const QList<QPointF>& curve, const std::function<double(double hertz)>& levelDb)
{
    QCOMPARE(curve.size(), 600);
    for (const QPointF& point : curve) {
        const double wanted = levelDb(point.x());
        QVERIFY2(agree(point.y(), wanted),
                 qPrintable(QStringLiteral("%1 Hz: %2 not %3").arg(point.x()).arg(point.y()).arg(wanted)));
    }
}

/// Level of a band by the text-book forms over the detuning x = f / f0, in extended precision: a peak is
/// ((1-x²)² + A²x²/q²) / ((1-x²)² + x²/(A²q²)), and so on. Independent of any polynomial in s.
double closedForm(const FilterBand& band, double hertz)
{
    const long double x2 = std::pow((long double)hertz / band.frequency, 2.0L);
    const long double a = std::pow(10.0L, (long double)band.gain / 40.0L);
    const long double q2 = (long double)band.q * band.q;
    const long double one = 1.0L;
    const auto sq = [](long double v) { return v * v; };
    const long double powers[5][2]{{sq(one - x2) + a * a * x2 / q2, sq(one - x2) + x2 / (a * a * q2)},
                                   {one, sq(one - x2) + x2 / q2},
                                   {sq(x2), sq(one - x2) + x2 / q2},
                                   {sq(a - x2) + a * x2 / q2, sq(one / a - x2) + x2 / (a * q2)},
                                   {sq(one - a * x2) + a * x2 / q2, sq(one - x2 / a) + x2 / (a * q2)}};
    return double(10.0L * std::log10(powers[band.type][0] / powers[band.type][1]));
}

FilterBand band(int number, int type, double frequency, double gain, double q, bool enabled = true)
{
    return {QString::number(number), enabled, type, frequency, gain, q};
}

} // namespace

class TestCurves : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void grid()
    {
        QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::EqualizerTool //SampleCount Request[676] Actual[600]");
        EqualizerTool tool(20, 22000, 676, true);
        const QList<quint32>& grid = tool.frequencies();
        QCOMPARE(grid.size(), 600);
        QCOMPARE(QList({grid.first(), grid[1], grid[2], grid[300], grid[598], grid.last()}),
                 QList<quint32>({20, 21, 22, 983, 21548, 21773}));
        QVERIFY(std::adjacent_find(grid.begin(), grid.end(), std::greater_equal<>()) == grid.end());
        compare(tool.curve("TargetCompensated"), [](double) { return 0.0; });
        QCOMPARE(tool.curve("Source")[300], QPointF(983, 0));
        QCOMPARE(tool.curve("Combined")[300], QPointF(20, 0)); // no x of its own before the first calculation
        tool.setPreGain(-4.5);
        QCOMPARE(tool.curve("Combined")[300], QPointF(983, -4.5));

        // The remainder of the ratio is dropped: up to 25 only, not to 49.
        QCOMPARE(EqualizerTool(25, 49, 1000, false).frequencies(), QList<quint32>({25}));
        const std::array<quint32, 3> senseless[]{{0, 100, 10}, {100, 20, 10}, {20, 20000, 0}};
        for (const auto& [from, to, count] : senseless) {
            EqualizerTool empty(from, to, count, false);
            empty.updateBands({band(1, 0, 1000, 6, 1), band(2, 0, 1000, 6, 1)});
            QVERIFY(empty.frequencies().isEmpty() && empty.curve("FilteredRaw").isEmpty());
        }
    }

    void everyTypeAndRange()
    {
        EqualizerTool tool(20, 22000, 676, false);
        for (int type = 0; type < 5; ++type) {
            for (const double frequency : {0.001, 20.0, 983.0, 21773.5, 1e7}) {
                for (const double gain : {-120.0, -12.0, 0.0, 0.1, 24.0}) {
                    for (const double q : {0.01, 0.707, 30.0}) {
                        const FilterBand one = band(1, type, frequency, gain, q);
                        tool.updateBands({one});
                        compare(tool.curve("1"), [&](double hertz) { return closedForm(one, hertz); });
                        if (QTest::currentTestFailed())
                            QFAIL(qPrintable(
                                QStringLiteral("type %1 at %2 Hz, %3 dB, q %4").arg(type).arg(frequency).arg(gain).arg(q)));
                    }
                }
            }
        }
    }

    void extremes_data()
    {
        QTest::addColumn<FilterBand>("one");
        QTest::addColumn<double>("atCentre"); // 983 Hz
        QTest::newRow("unknown type") << band(1, 7, 983, 6, 1) << -kInfinity;
        QTest::newRow("negative type") << band(1, -1, 983, 6, 1) << -kInfinity;
        QTest::newRow("q zero") << band(1, 0, 983, 6, 0) << kNan;
        QTest::newRow("q negative") << band(1, 0, 983, 6, -0.707) << 6.0;
        QTest::newRow("q endless, on a pole") << band(1, 1, 983, 6, kInfinity) << kNan;
        QTest::newRow("q endless, off it") << band(1, 1, 1966, 6, kInfinity) << 20 * std::log10(4.0 / 3.0);
        QTest::newRow("q tiny") << band(1, 1, 983, 0, 1e-200) << -4000.0;
        QTest::newRow("q huge") << band(1, 1, 983, 0, 1e200) << 4000.0;
        QTest::newRow("gain beyond squares") << band(1, 0, 983, 5000, 1) << 5000.0;
        QTest::newRow("gain endless") << band(1, 0, 983, kInfinity, 1) << kNan;
        QTest::newRow("lowpass, gain no number") << band(1, 1, 983, kNan, 1) << 0.0;
        QTest::newRow("lowpass at zero") << band(1, 1, 0, 0, 1) << -kInfinity;
        QTest::newRow("frequency no number") << band(1, 3, kNan, 6, 1) << kNan;
        QTest::newRow("frequency beyond squares") << band(1, 3, 1e200, 6, 1) << kNan;
        QTest::newRow("disabled") << band(1, 7, kNan, kNan, 0, false) << 0.0;
    }
    void extremes()
    {
        QFETCH(FilterBand, one);
        QFETCH(double, atCentre);
        EqualizerTool tool(20, 22000, 676, false);
        tool.updateBands({one, band(2, 0, 983, 3, 1)});
        tool.setPreGain(1.0);
        const auto check = [&](const char* name, double wanted) {
            const double got = tool.curve(name)[300].y();
            QVERIFY2(agree(got, wanted), qPrintable(QStringLiteral("%1: %2").arg(QLatin1StringView(name)).arg(got)));
        };
        check("1", atCentre);
        check("Combined", atCentre + 4.0);
        check("FilteredRaw", atCentre + 4.0);
        check("FilteredRawAlignment", std::isfinite(atCentre) ? 0.0 : kNan);
        if (!one.enabled)
            compare(tool.curve("1"), [](double) { return 0.0; });
    }

    void cascadesBeyondADouble()
    {
        EqualizerTool tool(20, 22000, 676, false);
        // Products vanish and overflow, though each factor is a number; where they do not, both ways agree.
        tool.updateBands({band(1, 0, 983, -4000, 1), band(2, 0, 983, -4000, 1)});
        QCOMPARE(tool.curve("Combined")[300].y(), -kInfinity);
        tool.updateBands({band(1, 0, 983, 4000, 1), band(2, 0, 983, 4000, 1)});
        QCOMPARE(tool.curve("Combined")[300].y(), kInfinity);
        const FilterBand large = band(1, 0, 983, 4000, 1);
        const FilterBand small = band(2, 0, 983, -3000, 1);
        tool.updateBands({large, small});
        compare(tool.curve("Combined"), [&](double hertz) { return closedForm(large, hertz) + closedForm(small, hertz); });
        // A silent band silences all; with one that is no number nothing is one.
        tool.updateBands({band(3, 7, 0, 0, 1), large});
        compare(tool.curve("Combined"), [](double) { return -kInfinity; });
        tool.updateBands({band(1, 7, 0, 0, 1), band(2, 0, 983, 6, 0)});
        compare(tool.curve("Combined"), [](double) { return kNan; });
    }

    void onlyTheChangedBand()
    {
        EqualizerTool tool(20, 22000, 676, false);
        QList<FilterBand> all;
        for (int number = 1; number <= 10; ++number)
            all.append(band(number, number % 5, 40.0 * number * number, number - 5.0, 0.7, number != 4));
        const auto cascade = [&](double hertz) {
            double sum = -3.0;
            for (const FilterBand& one : all)
                sum += one.enabled ? closedForm(one, hertz) : 0.0;
            return sum;
        };
        tool.setPreGain(-3.0);
        tool.updateBands(all, 96000.0);
        compare(tool.curve("Combined"), cascade);
        const QList<QPointF> other = tool.curve("7");
        const QList<QPointF>& held = tool.curve("3");

        all[2] = band(3, 4, 5000, -9, 1.4);
        tool.updateBands({all[2]});
        compare(tool.curve("Combined"), cascade);
        compare(held, [&](double hertz) { return closedForm(all[2], hertz); });
        QCOMPARE(tool.curve("7").constData(), other.constData()); // was not written again
        QCOMPARE(tool.bands().size(), 10);
        QCOMPARE(tool.bands().last().name, "10");
        tool.updateBands({});
        QCOMPARE(tool.bands().size(), 10);

        // A name that is only asked for is no band; as one it has a curve, and two drop all the rest.
        QVERIFY(tool.curve("12").isEmpty());
        compare(tool.curve("Combined"), cascade);
        QCOMPARE(tool.bands().size(), 10);
        all = {band(12, 0, 983, 2, 1), band(2, 0, 983, 2, 1)};
        tool.updateBands(all);
        compare(tool.curve("Combined"), cascade);
        QVERIFY(tool.curve("7").isEmpty());
        QCOMPARE(tool.bands().size(), 2);
    }

    void spline()
    {
        // Three rows: by hand c1 = 3/4 (s2 - s1) / (x2 - x0) * 2 with the slopes s of both pieces; halfway a piece of width h the
        // curve lies c1 h² / 8 below its chord. Outside it runs straight with the end's slope s ∓ c1 h / 3.
        const quillon::CurveSpline bent({100, 300, 700}, {0, 2, -6});
        const double c = 1.5 * (-0.02 - 0.01) / 600;
        const double points[][2]{{300, 2},
                                 {700, -6},
                                 {200, 1 - c * 200 * 200 / 8},
                                 {500, -2 - c * 400 * 400 / 8},
                                 {20, -80 * (0.01 - c * 200 / 3)},
                                 {1000, -6 + 300 * (-0.02 + c * 400 / 3)}};
        for (const auto& [hertz, level] : points)
            QVERIFY2(agree(bent.at(hertz), level), qPrintable(QString::number(hertz)));
        // Two rows are a line; many rows of one keep their natural ends.
        QVERIFY(agree(quillon::CurveSpline({10, 20}, {1, 2}).at(-30), -3));
        std::vector<double> x, y;
        for (int i = 0; i < 1000; ++i) {
            x.push_back(20 + i * i * 0.02);
            y.push_back(std::sin(x.back() / 3000));
        }
        const quillon::CurveSpline smooth(x, y);
        for (double hertz = 4000; hertz < 14000; hertz += 321.5)
            QVERIFY(std::abs(smooth.at(hertz) - std::sin(hertz / 3000)) < 1e-8);
    }
};

QTEST_GUILESS_MAIN(TestCurves)
#include "tst_curves.moc"
