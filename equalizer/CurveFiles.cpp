#include "equalizer/CurveFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

/// Takes a text apart line by line: line feed, carriage return, both, or the doubled return that editors leave behind.
class Lines
{
public:
    explicit Lines(QByteArrayView text) : mRest(text) {}

    /// The next line without its end; nothing behind the last one.
    std::optional<QByteArrayView> next()
    {
        if (mRest.isEmpty())
            return std::nullopt;
        qsizetype end = 0;
        while (end < mRest.size() && mRest[end] != '\n' && mRest[end] != '\r')
            ++end;
        const QByteArrayView line = mRest.first(end);
        mRest = mRest.sliced(end);
        static constexpr std::array<QByteArrayView, 4> kEnds{"\n", "\r\n", "\r\r\n", "\r"};
        for (const QByteArrayView terminator : kEnds) {
            if (mRest.startsWith(terminator)) {
                mRest = mRest.sliced(terminator.size());
                break;
            }
        }
        return line;
    }

private:
    QByteArrayView mRest;
};

/// The first fields of a line; none is decoded before it is asked for, however long the line is.
class Fields
{
public:
    explicit Fields(QByteArrayView line)
    {
        while (mCount < qsizetype(mFields.size())) {
            const qsizetype comma = line.indexOf(',');
            mFields[std::size_t(mCount++)] = comma < 0 ? line : line.first(comma);
            if (comma < 0)
                break;
            line = line.sliced(comma + 1);
        }
    }

    /// Number of fields, 7 for that many or more.
    qsizetype count() const { return mCount; }
    QByteArrayView raw(std::size_t index) const { return mFields[index]; }
    QString text(std::size_t index) const { return QString::fromUtf8(mFields[index]); }
    double number(std::size_t index) const
    {
        // The plain number of nearly every row, some ten times as fast; all else is QString's to judge.
        const QByteArrayView field = mFields[index];
        double value = 0.0;
        const auto [end, error] = std::from_chars(field.begin(), field.end(), value);
        return error == std::errc() && end == field.end() && std::isfinite(value) ? value : text(index).toDouble();
    }
    int integer(std::size_t index) const { return text(index).toInt(); }

private:
    std::array<QByteArrayView, 7> mFields;
    qsizetype mCount = 0;
};

bool isResponseHeader(QByteArrayView line)
{
    const Fields fields(line);
    return fields.count() >= 2 && fields.text(0).toLower().contains("fre(hz)"_L1) &&
           fields.text(1).toLower().contains("raw(db)"_L1);
}

QByteArray general(double value)
{
    return QByteArray::number(value, 'g', 6);
}

/// Written under another name and renamed over the old file.
bool replaceWhole(const QString& path, const QByteArray& bytes, QIODevice::OpenMode more)
{
    QSaveFile file(path);
    // Qt 6.4's commit() does not look at its own last flush.
    return file.open(QIODevice::WriteOnly | more) && file.write(bytes) == bytes.size() && file.flush() && file.commit();
}

} // namespace

std::optional<ResponseRows> parseResponse(QByteArrayView text)
{
    Lines lines(text);
    auto line = lines.next();
    while (line && !isResponseHeader(*line))
        line = lines.next();
    ResponseRows rows;
    while ((line = lines.next())) {
        const Fields fields(*line);
        if (fields.count() < 2)
            return std::nullopt;
        const double frequency = fields.number(0);
        if (!std::isfinite(frequency) || (!rows.frequencies.empty() && frequency <= rows.frequencies.back()))
            return std::nullopt;
        rows.frequencies.push_back(frequency);
        rows.levels.push_back(fields.number(1));
    }
    if (rows.frequencies.size() < 2)
        return std::nullopt;
    return rows;
}

std::optional<BandSet> parseBandSet(QByteArrayView text)
{
    Lines lines(text);
    auto line = lines.next();
    while (line && *line != "EQFilterParameters")
        line = lines.next();
    if (!line)
        return std::nullopt;
    BandSet set;
    while ((line = lines.next())) {
        const Fields fields(*line);
        if (fields.count() == 2 && fields.raw(0) == "PreGain") {
            set.preGain = fields.number(1);
        } else if (fields.count() == 6) {
            if (set.bands.size() == kMostBandRows)
                return std::nullopt;
            set.bands.append({.name = fields.text(0),
                              .enabled = fields.integer(1) != 0,
                              .type = fields.integer(2),
                              .frequency = fields.number(3),
                              .gain = fields.number(4),
                              .q = fields.number(5)});
        }
    }
    return set;
}

QByteArray responseText(const QList<QPointF>& points)
{
    QByteArray text = "fre(Hz),raw(dB)\n";
    for (const QPointF& point : points)
        text += general(point.x()) + ',' + general(point.y()) + '\n';
    return text;
}

QByteArray bandSetText(double preGain, const QList<FilterBand>& bands)
{
    QByteArray text = "EQFilterParameters\nPreGain," + general(preGain) + '\n';
    for (const FilterBand& band : bands) {
        text += band.name.toUtf8() + (band.enabled ? ",1," : ",0,") + QByteArray::number(band.type) + ',' +
                general(band.frequency) + ',' + general(band.gain) + ',' + general(band.q) + '\n';
    }
    return text;
}

std::optional<QByteArray> readCurveFile(const QString& path)
{
    QFile file(path);
    // A pipe or a device would hold the window for as long as it likes.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    if (file.size() > kMostCurveBytes)
        return QByteArray();
    QByteArray bytes = file.read(kMostCurveBytes);
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    const auto encoding = QStringConverter::encodingForData(bytes);
    if (encoding == QStringConverter::Utf8)
        return bytes.remove(0, 3);
    if (encoding)
        return QString(QStringDecoder(*encoding).decode(bytes)).toUtf8();
    return bytes;
}

bool writeCurveFile(const QString& path, const QByteArray& text)
{
    return replaceWhole(path, text, QIODevice::Text);
}

QString curveCachePath(const QString& folder, const QString& objectName, const QString& curve)
{
    return folder + QDir::separator() + objectName + "_EQ"_L1 + curve + "File.csv"_L1;
}

bool storeCurveCache(const QString& chosenPath, const QString& cachePath)
{
    QFile chosen(chosenPath);
    if (!QFileInfo(chosenPath).isFile() || !chosen.open(QIODevice::ReadOnly) || chosen.size() > kMostCurveBytes)
        return false;
    const QByteArray bytes = chosen.read(kMostCurveBytes);
    return chosen.error() == QFileDevice::NoError && replaceWhole(cachePath, bytes, {});
}

bool hasCurveCache(const QString& cachePath)
{
    if (!QFileInfo::exists(cachePath)) {
        QFile file(cachePath);
        (void)file.open(QIODevice::WriteOnly | QIODevice::Text); // without it the next start finds no import just the same
        return false;
    }
    return QFileInfo(cachePath).size() != 0;
}

} // namespace quillon
