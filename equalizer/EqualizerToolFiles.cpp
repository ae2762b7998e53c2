#include "equalizer/CurveFiles.h"
#include "equalizer/CurveSpline.h"
#include "equalizer/EqualizerTool.h"

using namespace Qt::StringLiterals;

namespace
{

/// A failure is one line in the log and an operation that did nothing.
QString refuse(const char* operation, const char* reason)
{
    qWarning("EqualizerTool::%s //%s", operation, reason);
    return {};
}

} // namespace

QString EqualizerTool::askPath(Operation operation, const QString& path) const
{
    static const struct {
        QString english;
        QString chinese;
        QString filter;
        bool saving;
    } kQuestions[]{
        {u"Select FR File"_s, u"选择频响文件"_s, u"FR Files (*.csv *.txt *.mic)"_s, false},
        {u"Save FR File"_s, u"保存频响文件"_s, u"FR Files (*.csv)"_s, true},
        {u"Import Filter Parameters"_s, u"导入滤波参数"_s, u"txt Files (*.txt)"_s, false},
        {u"Export Filter Parameters"_s, u"导出滤波参数"_s, u"txt Files (*.txt)"_s, true},
    };
    if (!path.isEmpty() || !mChooser)
        return path;
    const auto& question = kQuestions[operation];
    return mChooser({mLanguage == "Chinese"_L1 ? question.chinese : question.english, question.filter, question.saving});
}

QString EqualizerTool::importCurve(const QString& name, const QString& path)
{
    const int index = curveIndex(name);
    if (index != Target && index != Source)
        return refuse("importCurve", "The current curve does not support import");
    const QString chosen = askPath(ImportCurve, path);
    if (chosen.isEmpty())
        return {};
    const auto text = quillon::readCurveFile(chosen);
    if (!text)
        return refuse("importCurve", "failed to open curve file");
    auto rows = quillon::parseResponse(*text);
    if (!rows)
        return refuse("importCurve", "The current curve is invalid");

    const quillon::CurveSpline spline(std::move(rows->frequencies), std::move(rows->levels));
    for (QPointF& point : mCurves[std::size_t(index)])
        point.setY(spline.at(point.x()));
    refreshTarget();
    refreshSource();
    calculateFiltered();
    return chosen;
}

QString EqualizerTool::exportCurve(const QString& name, const QString& path) const
{
    if (curveIndex(name) != Combined)
        return refuse("exportCurve", "The current curve does not support export");
    const QString chosen = askPath(ExportCurve, path);
    if (!chosen.isEmpty() && !quillon::writeCurveFile(chosen, quillon::responseText(mCurves[Combined])))
        return refuse("exportCurve", "failed to open curve file");
    return chosen;
}

QString EqualizerTool::importBandData(const QString& path)
{
    const QString chosen = askPath(ImportBandData, path);
    if (chosen.isEmpty())
        return {};
    const auto text = quillon::readCurveFile(chosen);
    if (!text)
        return refuse("importBandData", "failed to open filter parameters file");
    const auto set = quillon::parseBandSet(*text);
    if (!set)
        return refuse("importBandData", "The current filter parameters file is invalid");
    mPreGain = set->preGain.value_or(mPreGain);
    updateBands(set->bands, 48000.0);
    return chosen;
}

QString EqualizerTool::exportBandData(const QString& path) const
{
    const QString chosen = askPath(ExportBandData, path);
    if (!chosen.isEmpty() && !quillon::writeCurveFile(chosen, quillon::bandSetText(mPreGain, bands())))
        return refuse("exportBandData", "failed to open filter parameters file");
    return chosen;
}
