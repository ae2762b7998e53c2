#include "Stage.h"

#include <QDir>
#include <QSettings>
#include <filesystem>

#ifdef __SANITIZE_THREAD__
extern "C" const char* __tsan_default_suppressions();
#endif

namespace
{

constexpr const char* kConf = "[CLSID]\n{E97E1508-2A66-4DF8-B7A7-32D6E5FCBA46}\\InprocServer32=" R47DRIVER "\n";

/// A second name for a file, or a copy where there can be none.
void putFile(const char* from, const QString& path)
{
    std::error_code error;
    std::filesystem::create_hard_link(from, path.toStdString(), error);
    if (error)
        QVERIFY(QFile::copy(from, path));
}

/// The program finds its workspaces beside itself, and its module: with other names for both it has a folder of its own.
void putProgram(const QString& path)
{
    putFile(QUILLON, path);
    putFile(CHART_MODULE, QFileInfo(path).dir().filePath("chart.so"));
}

void write(const QString& path, const char* text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) >= 0);
}

bool handlesTermination(qint64 pid)
{
    QFile status(QString("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = status.readAll();
    const qsizetype at = text.indexOf("SigCgt:");
    return at >= 0 && (text.mid(at + 7, 17).trimmed().toULongLong(nullptr, 16) & (1u << (SIGTERM - 1)));
}

// The five input strips of a first start, as each page sends them; the Pro page has more between them.
const QStringList kInputs{"2102 1",  "2103 0", "2104 26", "2105 0", "2203 0",  "2204 26", "2205 0",
                          "2304 81", "2305 0", "2504 87", "2505 0", "2704 99", "2705 0"};

struct WholePage {
    int crosspoints;    // mixes, strips in each, four for each of these
    QSet<QString> told; // more than once: a level with each of its modes, a gain for each side of both
};
const QMap<int, WholePage> kPages{{1, {0, {"4406", "5103", "5203"}}}, {2, {5 * 10 * 4, {}}}, {3, {3 * 9 * 4, {}}}};

/// What is wrong with the page of a first start; nothing when it is right.
QString faultOf(const QStringList& frames, const WholePage& whole)
{
    if (frames.size() < 2 || frames.first() != "1120 1" || frames.last() != "1120 0")
        return "no bracket";
    qsizetype input = 0;
    int crosspoints = 0;
    QSet<QString> seen;
    for (const QString& frame : frames.mid(1, frames.size() - 2)) {
        const QString code = frame.section(' ', 0, 0);
        if (seen.contains(code) && !whole.told.contains(code))
            return "twice: " + frame;
        seen += code;
        input += input < kInputs.size() && frame == kInputs[input];
        crosspoints += code.startsWith('3');
    }
    if (input < kInputs.size())
        return "missing, or not in its place: " + kInputs[input];
    return crosspoints == whole.crosspoints ? QString() : QString("%1 crosspoints").arg(crosspoints);
}

/// A page without a workspace switches off what its equalizers are: one for each that it can open.
const QStringList kFreshFrames{"9b0f 0", "9b10 0", "ab0f 0"};

QStringList firstPage(int mode)
{
    Stage stage({"--rate", "0", "--mode", QString::number(mode)});
    stage.mark();
    QStringList page = stage.start() && stage.waitForPage() ? stage.sentWithFresh() : QStringList();
    QStringList fresh;
    for (const QString& frame : kFreshFrames)
        fresh += page.filter(frame);
    page.removeIf([](const QString& frame) { return kFreshFrames.contains(frame); });
    const bool greeted = !page.isEmpty() && page.takeFirst() == "1101 1";
    stage.mark();
    stage.unit().ask(QString("frame 1101 %1").arg(mode));
    const QStringList again = stage.waitForPage() ? stage.sentWithFresh() : QStringList();
    QString fault = greeted ? faultOf(page, kPages[mode]) : "no hello";
    if (fault.isEmpty() && again != page)
        fault = "another page when it is opened again: " + again.join(", ");
    if (fresh != kFreshFrames.first(mode == 3 ? 3 : 2))
        fault = "fresh equalizers: " + fresh.join(", ");
    if (fault.isEmpty())
        return page;
    QTest::qFail(qPrintable(QString("mode %1, %2").arg(mode).arg(fault)), __FILE__, __LINE__);
    return {};
}

} // namespace

QStringList pageOf(int mode, const QMap<QString, int>& changed)
{
    static QMap<int, QStringList> pages;
    if (!pages.contains(mode))
        pages[mode] = firstPage(mode);
    QStringList page = pages[mode];
    for (QString& frame : page) {
        const QString code = frame.section(' ', 0, 0);
        if (changed.contains(code))
            frame = QString("%1 %2").arg(code).arg(changed[code]);
    }
    return page;
}

Stage::Stage(const QStringList& unitOptions) : mUnit(unitOptions)
{
    putProgram(folder("quillon"));
    for (const char* name : {"config", "data", "cache", "run", "tmp"})
        QDir(folder()).mkpath(name);
    write(folder("config/TUSBAUDIO.conf"), kConf);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const std::pair<const char*, QString> places[] = {{"HOME", folder()},
                                                      {"XDG_CONFIG_HOME", folder("config")},
                                                      {"XDG_DATA_HOME", folder("data")},
                                                      {"XDG_CACHE_HOME", folder("cache")},
                                                      {"XDG_RUNTIME_DIR", folder("run")},
                                                      {"TMPDIR", folder("tmp")},
                                                      {"R47_DIR", mUnit.path({})},
                                                      {"LD_LIBRARY_PATH", R47HIDAPI},
                                                      {"QT_QPA_PLATFORM", "offscreen"}};
    for (const auto& [name, value] : places)
        environment.insert(name, value);
#ifdef __SANITIZE_THREAD__
    // The program is watched by the rules of the tests.
    write(folder("rules"), __tsan_default_suppressions());
    environment.insert("TSAN_OPTIONS", "suppressions=" + folder("rules"));
#endif
    QFile::setPermissions(folder("run"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    mProgram.setProcessEnvironment(environment);
    mProgram.setChildProcessModifier([this] {
        if (mBeforeStart)
            mBeforeStart();
    });
}

Stage::~Stage()
{
    mProgram.kill();
    mProgram.waitForFinished(5000);
    if (QTest::currentTestFailed())
        qInfo("%s", log().constData());
}

bool Stage::start()
{
    mUnit.tell("clear"); // what an earlier program has sent
    mProgram.start(folder("quillon"), QStringList());
    return mProgram.waitForStarted() && eventually([this] { return handlesTermination(mProgram.processId()); }, 10000 * kPatience);
}

int Stage::quit()
{
    mProgram.terminate();
    const bool ended = mProgram.waitForFinished(kQuitMs);
    return ended && mProgram.exitStatus() == QProcess::NormalExit ? mProgram.exitCode() : -1;
}

QByteArray Stage::log()
{
    return mLog += mProgram.readAllStandardError();
}

QStringList Stage::troubles(const QStringList& allowed)
{
    // The platform without a screen says so of every window.
    static const QRegularExpression platform("This plugin does not support propagateSizeHints");
    static const QRegularExpression trouble("\\[(Warning|Critical|Fatal)\\]|Sanitizer|runtime error:|terminate called");
    QStringList found;
    for (const QString& line : QString::fromLocal8Bit(log()).split('\n')) {
        const auto matches = [&line](const QString& pattern) { return line.contains(QRegularExpression(pattern)); };
        if (line.contains(trouble) && !line.contains(platform) && !std::any_of(allowed.begin(), allowed.end(), matches))
            found += line;
    }
    return found;
}

void Stage::mark()
{
    QVERIFY(mUnit.tell("clear"));
    QVERIFY(mUnit.tell("record " + mUnit.path(QString("record%1").arg(++mRecords))));
}

QList<std::pair<quint64, QString>> Stage::sentAt()
{
    QList<std::pair<quint64, QString>> frames;
    mUnit.tell("record flush");
    QFile file(mUnit.path(QString("record%1").arg(mRecords)));
    if (!file.open(QIODevice::ReadOnly))
        return frames;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QByteArrayList words = line.split(' ');
        if (words.size() >= 4 && words[1] == "in")
            frames.append({words[0].toULongLong(), QString::fromLatin1(words[2] + ' ' + words[3])});
    }
    return frames;
}

QStringList Stage::sent()
{
    QStringList frames = sentWithFresh();
    // Which ones these are, and that they come with a fresh page only, is held where pages are compared first.
    frames.removeIf([](const QString& frame) { return kFreshFrames.contains(frame); });
    return frames;
}

QStringList Stage::sentWithFresh()
{
    QStringList frames;
    for (const auto& frame : sentAt())
        frames += frame.second;
    return frames;
}

QString Stage::workspace() const
{
    const QSettings settings(folder("config/ZELMORA/ZELMORA Quillon.conf"), QSettings::NativeFormat);
    return folder("Workspace/R47/Live/R47_Live_" + settings.value("R47/R47_Live_Workspace").toString() + ".ini");
}

QVariant Stage::stored(const QString& key) const
{
    return QSettings(workspace(), QSettings::IniFormat).value(key);
}

QByteArray Stage::workspaceBytes() const
{
    QFile file(workspace());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
