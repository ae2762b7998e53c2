#pragma once

#include "equalizer/FilterMath.h"

#include <QObject>

#include <functional>
#include <map>

/// The numeric core of the equalizer: bands, responses and the curves that follow from them, and their files. It has no window and
/// sends no signals; after each call all curves agree. One thread.
///
/// Curves hold one point (Hz, dB) a frequency of the grid. A band drawn is an analogue prototype: no sample rate enters.
class EqualizerTool : public QObject
{
    Q_OBJECT
public:
    /// What a file dialog has to ask.
    struct FileQuestion {
        QString title;
        QString filter;
        bool saving;
    };
    /// Asks the user for a path; an empty one when cancelled.
    using FileChooser = std::function<QString(const FileQuestion&)>;

    /// The grid goes up in sampleCount even steps of the logarithm, cut to whole Hz, without repeats; the upper end itself is not
    /// in it. The ratio of the ends counts in whole numbers. Senseless ends give an empty grid. Can log what became of the count.
    EqualizerTool(quint32 minFrequency, quint32 maxFrequency, quint32 sampleCount, bool logSampleCount, QObject* parent = nullptr);

    /// "English" or "Chinese", the language of the file dialogs' titles; any other counts as English.
    void setLanguage(const QString& language) { mLanguage = language; }
    QString language() const { return mLanguage; }
    /// Who asks for a path when an operation gets none. Without one, an empty path stays empty.
    void setFileChooser(FileChooser chooser) { mChooser = std::move(chooser); }

    /// Gain in dB over all bands.
    void setPreGain(double preGain);
    double preGain() const { return mPreGain; }
    /// One band replaces the one of its name; more replace all; none changes none. The sample rate is of no effect.
    void updateBands(const QList<FilterBand>& bands, double sampleRate = 48000.0);
    /// All bands as they were set, by number.
    QList<FilterBand> bands() const;
    /// The grid in Hz, ascending.
    const QList<quint32>& frequencies() const { return mFrequencies; }

    /// A curve by its name: "Target", "Source" (also with Raw, Compensated), "Combined", "FilteredRaw", "FilteredCompensated" (also
    /// with Alignment), or the band of that name, empty where there is none. A band's list goes with the next replacement of all.
    const QList<QPointF>& curve(const QString& name);

    // The file operations. An empty path asks the user. They return the path, or an empty string when they did nothing: after a
    // warning in the log, or when the user cancelled.

    /// Puts a measured response in the place of "Target" or "Source".
    QString importCurve(const QString& name, const QString& path = {});
    /// Writes "Combined".
    QString exportCurve(const QString& name, const QString& path = {}) const;
    /// Reads bands by the rule of updateBands, and the pre-gain if the file has one.
    QString importBandData(const QString& path = {});
    /// Writes all bands and the pre-gain.
    QString exportBandData(const QString& path = {}) const;

private:
    struct Band {
        FilterBand settings;
        FilterCoefficients coefficients;
        double reachDb = 0.0; // farthest level from 0 dB, infinity when one is not finite
        bool exists = false;  // else somebody only asked for its curve
        QList<QPointF> curve;
    };
    /// Decimal numbers in their order.
    struct ByNumber {
        bool operator()(const QString& a, const QString& b) const { return a.size() != b.size() ? a.size() < b.size() : a < b; }
    };
    enum CurveIndex {
        Target,
        TargetRaw,
        TargetCompensated,
        Source,
        SourceRaw,
        SourceCompensated,
        Combined,
        FilteredRaw,
        FilteredRawAlignment,
        FilteredCompensated,
        FilteredCompensatedAlignment,
        CurveCount
    };
    enum Operation { ImportCurve, ExportCurve, ImportBandData, ExportBandData };

    void calculateBand(Band& band);
    void calculateCombined();
    void calculateFiltered();
    void refreshTarget();
    void refreshSource();
    static int curveIndex(const QString& name);
    QString askPath(Operation operation, const QString& path) const;

    double mPreGain = 0.0;
    QString mLanguage;
    FileChooser mChooser;
    quint32 mMinFrequency;
    QList<quint32> mFrequencies;
    std::map<QString, Band, ByNumber> mBands; // stays in place when others come: curve() hands out references
    std::array<QList<QPointF>, CurveCount> mCurves;
    std::vector<double> mSum; // of all bands in dB, a point of the grid each
};
