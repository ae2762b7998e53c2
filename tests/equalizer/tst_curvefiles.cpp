#include "equalizer/CurveFiles.h"
#include "equalizer/EqualizerTool.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

const QByteArray kHead = "fre(Hz),raw(dB)\n";

template<typename Result> void addRow(const char* name, const QByteArray& bytes, const Result& result)
{
    QTest::newRow(name) << bytes << result;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("-");
}

} // namespace

class TestCurveFiles : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void responses_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<double>("at1000"); // of the line through (0 Hz, 0 dB) and (2000 Hz, wanted twice); NaN: refused
        const QByteArray& head = kHead;
        const QString wide = QChar(QChar::ByteOrderMark) + QString::fromUtf8(head + "0,0\n2000,4\n");
        const double refused = std::nan("");
        const auto row = addRow<double>;
        row("plain", head + "0,0\n2000,-6.5\n", -3.25);
        row("preamble, extra columns, blanks",
            QByteArray("* measured, 2024\n").repeated(20) + "My Fre(Hz) , Raw(dB) left,Phase\xb0(deg)\n0,0,7\n 2000 , 4 ,\xff\n",
            2.0);
        row("text windows", "\r\nFRE(HZ),RAW(DB)\r\n0,0\r\n2000,4\r\n", 2);
        row("text twice windows", "fre(Hz),raw(dB)\r\r\n0,0\r\r\n2000,4\r\r\n", 2);
        row("old mac", "preamble\rfre(Hz),raw(dB)\r0,0\r2000,4\r", 2);
        row("byte-order mark", "\xef\xbb\xbf" + head + "0,0\n2000,4\n", 2);
        row("sixteen bits", QByteArray(reinterpret_cast<const char*>(wide.utf16()), wide.size() * 2), 2);
        row("field no number", head + "Hz,dB\n2000,4\n", 2);
        row("empty fields", head + ",\n2000,4\n", 2);
        row("exponents, no last end", head + "0,-0e5\n+2.0E3,.4e1", 2);
        row("level beyond a double", head + "0,0\n2000,1e999\n", std::numeric_limits<double>::infinity());
        row("long preamble line", QByteArray(5'000'000, ',') + '\n' + head + "0,0\n2000,4\n", 2);
        row("long row", head + "0,0," + QByteArray(5'000'000, 'x') + "\n2000,4\n", 2);
        row("thousands of digits", head + "0,0\n2000," + QByteArray(5000, '0') + "4." + QByteArray(5000, '0') + '\n', 2);

        row("empty", "", refused);
        row("semicolons", "fre(Hz);raw(dB)\n0;0\n2000;4\n", refused);
        row("header in the wrong columns", "No,fre(Hz),raw(dB)\n1,0,0\n2,2000,4\n", refused);
        row("no rows", head, refused);
        row("one row", head + "0,0\n", refused);
        row("row of one field", head + "0,0\n1000\n2000,4\n", refused);
        row("empty line in the rows", head + "0,0\n\n2000,4\n", refused);
        row("descending", head + "2000,4\n0,0\n", refused);
        row("repeated", head + "0,0\n2000,4\n2000,4\n", refused);
        row("no number among the rows", head + "0,0\nx,1\n2000,4\n", refused);
        row("decimal comma is a column more", head + "0,5,0\n0,7,0\n", refused);
        row("frequency nan", head + "nan,0\n2000,4\n", refused);
        row("frequency endless", head + "-inf,0\n0,0\n2000,4\n", refused);
        row("bytes of anything", QByteArray(100'000, '\0') + "\n,,,\xff\xfe\n", refused);
        row("returns only", QByteArray(3'000'000, '\r'), refused);
        row("too large", head + "0,0\n2000,4," + QByteArray(quillon::kMostCurveBytes, 'x'), refused);
    }
    void responses()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(double, at1000);
        QLocale::setDefault(QLocale(QLocale::German)); // its decimal sign is the comma
        EqualizerTool tool(20, 22000, 676, false);
        QVERIFY(!tool.importCurve("Source", write(kHead + "0,1\n1,1\n")).isEmpty());
        tool.updateBands({{"1", true, 0, 983, 3, 1}});
        const QString path = write(bytes);
        const auto at = [&](const char* name) { return tool.curve(name)[300].y(); };

        if (std::isnan(at1000)) {
            QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::importCurve //The current curve is invalid");
            QCOMPARE(tool.importCurve("Source", path), QString());
            QCOMPARE(QList({at("Source"), at("SourceRaw"), at("FilteredRaw")}), QList({1.0, 1.0, 4.0}));
            return;
        }
        QCOMPARE(tool.importCurve("Source", path), path);
        const double level = at1000 * 983 / 1000;
        QCOMPARE(at("Source"), level);
        QCOMPARE(at("SourceRaw"), level);
        QCOMPARE(at("FilteredRaw"), level + 3);
        QCOMPARE(tool.curve("Source").last().y(), at1000 * 21.773); // straight on, beyond the last row
    }

    void targetIsTheLine()
    {
        EqualizerTool tool(20, 22000, 676, false);
        QVERIFY(!tool.importCurve("Source", write(kHead + "0,10\n100000,10\n")).isEmpty());
        QVERIFY(!tool.importCurve("Target", write(kHead + "0,0\n983000,1000\n")).isEmpty());
        tool.updateBands({{"1", true, 0, 983, 3, 1}});
        const auto at = [&](const char* name, int index) { return tool.curve(name)[index].y(); };
        const double band = at("1", 0) - at("1", 300);
        const double target = 20.0 / 983;
        const std::tuple<const char*, double, double> wanted[]{
            {"TargetRaw", target, 1},
            {"TargetCompensated", 0, 0},
            {"SourceRaw", 10, 10},
            {"SourceCompensated", 10 - target, 9},
            {"FilteredRaw", 13 + band, 13},
            {"FilteredRawAlignment", band, 0},
            {"FilteredCompensated", 13 + band - target, 12},
            {"FilteredCompensatedAlignment", band - target, -1}, // the target's own middle stays in
        };
        for (const auto& [name, first, middle] : wanted) {
            QVERIFY2(std::abs(at(name, 0) - first) < 1e-9, name);
            QVERIFY2(std::abs(at(name, 300) - middle) < 1e-9, name);
            QCOMPARE(tool.curve(name)[300].x(), 983);
        }
    }

    void bandFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("written"); // by an export behind it, without its marker; empty: refused
        const auto row = addRow<QByteArray>;
        const QByteArray mark = "EQFilterParameters\n";
        const QByteArray kept = "1,1,0,100,1,1\n2,1,0,200,2,2\n";
        row("two replace all", mark + "PreGain,-2.5\n10,1,4,1000,-3.5,0.707\n9,0,1,20,0,1\n",
            "PreGain,-2.5\n9,0,1,20,0,1\n10,1,4,1000,-3.5,0.707\n");
        row("pre-gain behind the bands, lines before the marker",
            "EQfilterparameters\n\n" + mark + "3,1,0,1,2,3\n4,1,0,1,2,3\nPreGain,6\n", "PreGain,6\n3,1,0,1,2,3\n4,1,0,1,2,3\n");
        row("one changes one", mark + "2,0,3,50,-1,5\n", "PreGain,1\n1,1,0,100,1,1\n2,0,3,50,-1,5\n");
        row("none keeps all", mark + "PreGain,3\n", "PreGain,3\n" + kept);
        row("rows that are none", mark + "3,1,0,1,2,3,4\n3,1,0,1,2\nPreGain,5,5\npreGain,5\nPreGain ,5\n\nPreGain\n,,,,,,,,,\n",
            "PreGain,1\n" + kept);
        row("windows, byte-order mark", QByteArray("\xef\xbb\xbf") + "EQFilterParameters\r\nPreGain,7\r\n", "PreGain,7\n" + kept);
        row("fields that are no numbers", mark + "a,yes,x,y,z,\n b,-1,99999999999,1e3,1e999,nan\n",
            "PreGain,1\na,0,0,0,0,0\n b,1,0,1000,inf,nan\n");
        row("unknown type", mark + "1,2,7,100,1,1\n", "PreGain,1\n1,1,7,100,1,1\n2,1,0,200,2,2\n");
        row("six digits", mark + "PreGain,0.1234567\n1,1,0,1234567,-0.00001234567,0.7071067811\n",
            "PreGain,0.123457\n1,1,0,1.23457e+06,-1.23457e-05,0.707107\n2,1,0,200,2,2\n");
        row("marker with a blank", "EQFilterParameters \nPreGain,5\n", QByteArray());
        row("more bands than anyone draws", mark + "PreGain,5\n" + QByteArray("1,1,0,100,1,1\n").repeated(2'000'000), QByteArray());
    }
    void bandFiles()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, written);
        EqualizerTool tool(20, 22000, 676, false);
        tool.setPreGain(1);
        tool.updateBands({{"1", true, 0, 100, 1, 1}, {"2", true, 0, 200, 2, 2}});
        const QString path = write(bytes);
        if (written.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::importBandData //The current filter parameters file is invalid");
            QCOMPARE(tool.importBandData(path), QString());
            written = "PreGain,1\n1,1,0,100,1,1\n2,1,0,200,2,2\n";
        } else {
            QCOMPARE(tool.importBandData(path), path);
        }
        const QString out = mFolder.filePath("out.txt");
        QCOMPARE(tool.exportBandData(out), out);
        QCOMPARE(bytesOf(out), "EQFilterParameters\n" + written);
        QCOMPARE(tool.curve("Combined")[0].y(), tool.curve("FilteredRaw")[0].y());
    }

    void exportedCurve()
    {
        EqualizerTool tool(20, 22000, 676, false);
        tool.setPreGain(0.25);
        const QString path = write("what was there, much longer than nothing");
        QCOMPARE(tool.exportCurve("Combined", path), path);
        const QList<QByteArray> lines = bytesOf(path).split('\n');
        QCOMPARE(lines.size(), 602);
        QCOMPARE(QList({lines[0], lines[1], lines[600], lines[601]}),
                 QList<QByteArray>({"fre(Hz),raw(dB)", "20,0.25", "21773,0.25", ""}));
        QCOMPARE(tool.importCurve("Target", path), path);
        QCOMPARE(tool.curve("FilteredCompensated")[5].y(), 0.0);
    }

    void failures()
    {
        EqualizerTool tool(20, 22000, 676, false);
        const QString pipe = mFolder.filePath("pipe");
        QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
        for (const QString& path : {mFolder.filePath("none"), mFolder.path(), pipe}) {
            QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::importCurve //failed to open curve file");
            QCOMPARE(tool.importCurve("Target", path), "");
            QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::importBandData //failed to open filter parameters file");
            QCOMPARE(tool.importBandData(path), "");
        }
        for (const char* name : {"TargetRaw", "Combined", "target", "1", ""}) {
            QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::importCurve //The current curve does not support import");
            QCOMPARE(tool.importCurve(name, pipe), "");
        }
        for (const char* name : {"Target", "combined", ""}) {
            QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::exportCurve //The current curve does not support export");
            QCOMPARE(tool.exportCurve(name, mFolder.filePath("never")), "");
        }

        // A disk that fills up leaves the old file.
        const QString path = write("old");
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit none{10, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
        QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::exportCurve //failed to open curve file");
        QTest::ignoreMessage(QtWarningMsg, "EqualizerTool::exportBandData //failed to open filter parameters file");
        const QStringList results{tool.exportCurve("Combined", path), tool.exportBandData(path)};
        ::setrlimit(RLIMIT_FSIZE, &before);
        QCOMPARE(results, QStringList({"", ""}));
        QCOMPARE(bytesOf(path), "old");
        QCOMPARE(QDir(mFolder.path()).entryList({"*never*", "file.*"}, QDir::Files), QStringList({"file.csv"}));
    }

    void questions()
    {
        EqualizerTool tool(20, 22000, 676, false);
        QStringList asked;
        QString answer;
        const auto askAll = [&] {
            return QStringList(
                {tool.importCurve("Source"), tool.exportCurve("Combined"), tool.importBandData(), tool.exportBandData()});
        };
        QCOMPARE(askAll().join(""), ""); // nobody there to ask
        tool.setFileChooser([&](const EqualizerTool::FileQuestion& question) {
            asked.append(question.title + (question.saving ? " > "_L1 : " < "_L1) + question.filter);
            return answer;
        });
        QCOMPARE(askAll().join(""), ""); // cancelled, without a warning
        QCOMPARE(asked,
                 QStringList({"Select FR File < FR Files (*.csv *.txt *.mic)", "Save FR File > FR Files (*.csv)",
                              "Import Filter Parameters < txt Files (*.txt)", "Export Filter Parameters > txt Files (*.txt)"}));
        asked.clear();
        tool.setLanguage(u"Chinese"_s);
        answer = mFolder.filePath("asked.txt");
        QCOMPARE(tool.exportBandData(), answer);
        QCOMPARE(tool.importBandData(), answer);
        QCOMPARE(asked, QStringList({u"导出滤波参数 > txt Files (*.txt)"_s, u"导入滤波参数 < txt Files (*.txt)"_s}));
    }

    void cache()
    {
        const QString cached = quillon::curveCachePath(mFolder.path(), "EQ_1", "Target");
        QCOMPARE(cached, mFolder.path() + QDir::separator() + "EQ_1_EQTargetFile.csv");
        QVERIFY(!quillon::hasCurveCache(cached) && QFileInfo::exists(cached) && !quillon::hasCurveCache(cached));
        for (const QByteArray& text : {"first\r\n"_ba, "second\n"_ba}) { // as it is, though write-protected
            const QString chosen = write(text);
            QVERIFY(QFile::setPermissions(chosen, QFileDevice::ReadOwner));
            QVERIFY(quillon::storeCurveCache(chosen, cached) && quillon::storeCurveCache(cached, cached));
            QCOMPARE(bytesOf(cached), text);
            QVERIFY(QFile::remove(chosen) && quillon::hasCurveCache(cached));
        }
        // What cannot be copied leaves the copy before it.
        for (const QString& chosen : {mFolder.filePath("none"), mFolder.path()})
            QVERIFY(!quillon::storeCurveCache(chosen, cached) && bytesOf(cached) == "second\n");
        QVERIFY(!quillon::storeCurveCache(cached, mFolder.filePath("no/folder.csv")));
    }

private:
    QString write(const QByteArray& bytes)
    {
        const QString path = mFolder.filePath("file.csv");
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("no room for a test file");
        return path;
    }

    QTemporaryDir mFolder;
};

QTEST_GUILESS_MAIN(TestCurveFiles)
#include "tst_curvefiles.moc"
