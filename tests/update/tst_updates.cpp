#include "Recorder.h"
#include "UpdateServer.h"
#include "update/UpdateThread.h"
#include "update/UpdaterFirmwareM1.h"
#include "update/UpdaterSoftware.h"
#include "update/Updates.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QMutex>
#include <QPointer>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <dlfcn.h>
#include <netdb.h>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

std::atomic<bool> gResolverHangs = false;
std::atomic<int> gLookUps = 0;

} // namespace

/// In place of the system's, also for the network library: counts, and hangs when told to.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** found)
{
    ++gLookUps;
    for (int i = 0; i < 500 && gResolverHangs; ++i) {
        QThread::msleep(10);
    }
    static const auto system = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return system(name, service, hints, found);
}

namespace
{

constexpr const char* kManifest = "/Jsons/UpdaterVantor.json";
const QString kFetch = u"Error occurred during get json: "_s;
const QString kDownload = u"Error occurred during download file: "_s;

/// Notes the files that it is given.
class PlainUpdater : public UpdaterBase
{
public:
    void update(const QString& path) override
    {
        const QMutexLocker lock(&mMutex);
        mFiles += path;
    }
    QStringList files() const
    {
        const QMutexLocker lock(&mMutex);
        return mFiles;
    }

private:
    mutable QMutex mMutex;
    QStringList mFiles;
};

/// An updater on a server, with short waits.
struct Rig {
    explicit Rig(const UpdateServer& server, int silenceMs = 400)
        : updater(new PlainUpdater), recorder(std::make_unique<Recorder>(*updater))
    {
        source.manifest = server.url(QLatin1StringView(kManifest));
        source.fetchSilenceMs = source.downloadSilenceMs = silenceMs;
        updater->setSource(source);
    }
    ~Rig()
    {
        recorder.reset();
        UpdateThread::post([last = updater] { delete last; });
    }
    void limit(qint64 bytes)
    {
        source.mostFileBytes = source.mostManifestBytes = bytes;
        updater->setSource(source);
    }
    QString download(const QString& url)
    {
        recorder->events.clear();
        updater->download(url);
        return recorder->outcome(u"Download"_s);
    }

    UpdateSource source;
    PlainUpdater* updater;
    std::unique_ptr<Recorder> recorder;
};

} // namespace

class tst_updates : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void fetches_data();
    void fetches();
    void certificates_data();
    void certificates();
    void manifestIsForAll();
    void downloads_data();
    void downloads();
    void eventsOfADownload();
    void speedOfASlowDownload();
    void retryAfterABrokenDownload();
    void retryOfUnknownSize();
    void fileIsPrivate();
    void sizes();
    void gateway();
    void namesAreLookedUp();
    void silentNameServer();
    void quitEndsAWaitingFetch();
    void threadEndsInTheMiddle_data();
    void threadEndsInTheMiddle();

private:
    std::unique_ptr<QTemporaryDir> mTemp;
};

void tst_updates::initTestCase()
{
    UpdateServer::trustAuthority();
}

void tst_updates::init()
{
    // These two come with many a failure as well; where they matter they are expected.
    QTest::failOnWarning(QRegularExpression(u"^(?!(Content-Length|bytesTotal) not available)"_s));
    qunsetenv("TMPDIR");
    mTemp = std::make_unique<QTemporaryDir>();
    qputenv("TMPDIR", mTemp->path().toLocal8Bit());
}

void tst_updates::cleanup()
{
    QVERIFY2(!QFileInfo::exists(QDir::homePath() + u"/.cache"_s), "nothing is kept in the user's home");
}

void tst_updates::fetches_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("log"); // empty: it succeeds
    const auto row = [](const char* name, const Answer& answer, const QString& log) { QTest::newRow(name) << answer << log; };
    const QByteArray good = R"({"Software": {"Win": {"Version": "1.3.0"}}})";
    row("object", Answer::of(good), {});
    row("in pieces", {.headers = {}, .pieces = {good.left(9), good.mid(9, 5), good.mid(14)}, .pauseMs = 100}, {});
    row("of unknown size", {.headers = {}, .pieces = {good}, .isSized = false}, {});
    row("sent on", Answer::redirect("/elsewhere"), {});
    row("empty object", Answer::of("{}"), {});
    row("array", Answer::of("[" + good + "]"), u"Invalid json data"_s);
    row("text", Answer::of("<html>"), u"Invalid json data"_s);
    row("nothing", Answer::of({}), u"Invalid json data"_s);
    row("cut object", Answer::of(good.chopped(1)), u"Invalid json data"_s);
    row("too deep", Answer::of(QByteArray(20000, '[')), u"Invalid json data"_s);
    row("no such file", {.status = "404 Not Found", .headers = {}, .pieces = {good}}, kFetch + u"Error transferring"_s);
    row("silence", {.headers = {}, .pieces = {good.left(5)}, .isSized = false, .stalls = true}, kFetch + u"Request timed out"_s);
    row("1 GB announced", {.headers = {"Content-Length: 1073741824"}, .pieces = {good}, .isSized = false}, kFetch + u"too large"_s);
    row("too large", {.headers = {}, .pieces = {QByteArray(70000, ' '), good}, .isSized = false}, kFetch + u"too large"_s);
    row("cut off", {.headers = {"Content-Length: 500"}, .pieces = {good}, .isSized = false}, kFetch + u"Connection closed"_s);
    row("sent on without end", Answer::redirect(kManifest), kFetch + u"Too many redirects"_s);
    row("sent on to a file", Answer::redirect("file:///etc/hostname"), kFetch);
    row("sent on to the open", Answer::redirect("http://127.0.0.1:9/"), kFetch);
}

void tst_updates::fetches()
{
    QFETCH(const Answer, answer);
    QFETCH(const QString, log);
    UpdateServer server(u"good"_s);
    Rig rig(server);
    server.answers.insert(QLatin1StringView(kManifest), Answer::of(R"({"before": 1})"));
    QVERIFY(rig.updater->fetchInfoAndWait());
    server.answers = {{QLatin1StringView(kManifest), answer}, {u"/elsewhere"_s, Answer::of("{}")}};
    if (!log.isEmpty()) {
        expect(log);
    }
    QCOMPARE(rig.updater->fetchInfoAndWait(), log.isEmpty());
    QCOMPARE(UpdaterBase::manifestObject().contains(u"before"_s), !log.isEmpty());

    // The other form says the same, by its signal alone.
    QList<bool> results;
    connect(rig.updater, &UpdaterBase::fetchFinished, this, [&results](bool success) { results += success; });
    if (!log.isEmpty()) {
        expect(log);
    }
    rig.updater->fetchInfo();
    QTRY_COMPARE(results, QList<bool>{log.isEmpty()});
}

void tst_updates::certificates_data()
{
    QTest::addColumn<QString>("certificate");
    for (const char* name : {"expired", "other", "self", ""}) {
        QTest::newRow(*name ? name : "none") << QString::fromLatin1(name);
    }
}

void tst_updates::certificates()
{
    QFETCH(const QString, certificate);
    UpdateServer server(certificate);
    server.answers.insert(QLatin1StringView(kManifest), Answer::of(R"({"forged": 1})"));
    Rig rig(server);
    for (const QString& scheme : {u"https"_s, server.url({}).scheme()}) {
        rig.source.manifest.setScheme(scheme);
        rig.updater->setSource(rig.source);
        expect(kFetch);
        QVERIFY(!rig.updater->fetchInfoAndWait());
        expect(kDownload);
        QCOMPARE(rig.download(rig.source.manifest.toString()), u"Failed"_s);
    }
    QVERIFY(!UpdaterBase::manifestObject().contains(u"forged"_s));
    QCOMPARE(server.asked, QStringList());
}

void tst_updates::manifestIsForAll()
{
    UpdateServer server(u"good"_s);
    server.answers.insert(QLatin1StringView(kManifest),
                          Answer::of(R"({"Device": {"R47": {"URL": "https://a/b.zip", "Version": 7}}})"));
    Rig rig(server);
    QVERIFY(rig.updater->fetchInfoAndWait());
    const Updates updates;
    QCOMPARE(updates.manifestText({u"Device"_s, u"R47"_s, u"URL"_s}), u"https://a/b.zip"_s);
    const QStringList absent[] = {{u"Device"_s, u"R47"_s, u"Version"_s}, {u"Device"_s, u"R48"_s, u"URL"_s}, {u"Device"_s}, {}};
    for (const QStringList& path : absent) {
        QCOMPARE(updates.manifestText(path), QString());
    }
}

void tst_updates::downloads_data()
{
    QTest::addColumn<QString>("path"); // on the server, or a whole address
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<bool>("succeeds");
    const auto row = [](const char* name, const QString& path, const Answer& answer, const QStringList& log,
                        bool succeeds = false) { QTest::newRow(name) << path << answer << log << succeeds; };
    const Answer good = Answer::of("firmware");
    row("whole", u"/f/R47.zip"_s, good, {}, true);
    row("with a query", u"/f/R47.zip?to=../../x#y"_s, good, {}, true);
    row("of unknown size", u"/R47.zip"_s, {.headers = {}, .pieces = {"firmware"}, .isSized = false},
        {u"Content-Length not available"_s, u"bytesTotal not available"_s}, true);
    row("no address", {}, good, {u"Url is empty"_s});
    row("silence", u"/a"_s, {.headers = {"Content-Length: 9"}, .pieces = {"x"}, .isSized = false, .stalls = true},
        {kDownload + u"Request timed out"_s});
    row("silence at once", u"/a"_s, {.headers = {"Content-Length: 9"}, .pieces = {}, .isSized = false, .stalls = true},
        {kDownload + u"Request timed out"_s});
    row("no such file", u"/a"_s, {.status = "404 Not Found", .headers = {}, .pieces = {"x"}},
        {kDownload + u"Error transferring"_s});
    row("control characters", u"/a"_s, {.status = "500 \x1b[31mred\x07", .headers = {}, .pieces = {"x"}},
        {kDownload + u"Error transferring"_s});
    row("cut off", u"/a"_s, {.headers = {"Content-Length: 900"}, .pieces = {"x"}, .isSized = false},
        {kDownload + u"Connection closed"_s});
    row("1 GB announced", u"/a"_s, {.headers = {"Content-Length: 1073741824"}, .pieces = {"x"}, .isSized = false},
        {kDownload + u"too large"_s});
    row("no name", u"/folder/"_s, good, {kDownload + u"fileName is empty"_s});
    for (const char* name : {"/a/..", "/.profile", "/a%5Cb", "/a'$(b)", "/a%0Ab", "/c:d"}) {
        row(name, QString::fromLatin1(name), good, {kDownload});
    }
    row("a name too long", u'/' + QString(300, u'n'), good, {u"Failed to open file for writing: "_s});
    row("not safe", u"http://127.0.0.1:9/a"_s, good, {kDownload + u"not a safe address"_s});
    row("a file of the user's", u"file:///etc/hostname"_s, good, {kDownload + u"not a safe address"_s});
    row("sent on to a file", u"/a"_s, Answer::redirect("file:///etc/hostname"), {kDownload});
    row("sent on to the open", u"/a"_s, Answer::redirect("http://127.0.0.1:9/a"), {kDownload});
}

void tst_updates::downloads()
{
    QFETCH(const QString, path);
    QFETCH(const Answer, answer);
    QFETCH(const QStringList, log);
    QFETCH(const bool, succeeds);
    UpdateServer server(u"good"_s);
    server.answers.insert(path.section(u'#', 0, 0), answer);
    Rig rig(server);
    for (const QString& line : log) {
        expect(line);
    }
    const QString address = path.startsWith(u'/') ? server.url({}).toString() + path : path;
    QCOMPARE(rig.download(address), succeeds ? u"Success"_s : u"Failed"_s);
    QCOMPARE(rig.recorder->events.constFirst(), u"DownloadState Start"_s);
    QCOMPARE(rig.recorder->of(u"DownloadState"_s).size(), 2);
    if (succeeds) {
        QTRY_COMPARE(rig.updater->files().size(), 1);
        QCOMPARE(filesBelow(mTemp->path()), rig.updater->files());
        QCOMPARE(contentOf(rig.updater->files().constFirst()), QByteArray("firmware"));
        QCOMPARE(QFileInfo(rig.updater->files().constFirst()).fileName(), u"R47.zip"_s);
        QCOMPARE(!rig.recorder->of(u"DownloadProgress"_s).isEmpty(), answer.isSized);
    } else {
        QTest::qWait(20);
        QCOMPARE(rig.updater->files(), QStringList());
        QCOMPARE(filesBelow(mTemp->path()), QStringList());
    }
}

void tst_updates::eventsOfADownload()
{
    UpdateServer server(u"good"_s);
    server.answers.insert(u"/R47.bin"_s, Answer::of(QByteArray(3 * 1024, 'x')));
    Rig rig(server);
    QCOMPARE(rig.download(server.url(u"/R47.bin"_s).toString()), u"Success"_s);
    const QStringList expected = {u"DownloadState Start"_s, u"DownloadFileSize 3.0 KB"_s, u"DownloadProgress 100"_s,
                                  u"DownloadCompleted 3.0 KB"_s, u"DownloadState Success"_s};
    QStringList events = rig.recorder->events;
    events.removeDuplicates(); // the end is told with the last bytes and once more
    QCOMPARE(events, expected);
}

void tst_updates::speedOfASlowDownload()
{
    UpdateServer server(u"good"_s);
    const QList<QByteArray> pieces(13, QByteArray(1000, 'x'));
    server.answers.insert(u"/R47.bin"_s, {.headers = {}, .pieces = pieces, .pauseMs = 200});
    Rig rig(server, 1000);
    QCOMPARE(rig.download(server.url(u"/R47.bin"_s).toString()), u"Success"_s);
    const QStringList speeds = rig.recorder->of(u"DownloadSpeed"_s);
    QVERIFY2(speeds.size() == 2, qPrintable(speeds.join(u',')));
    for (const QString& speed : speeds) {
        const double number = speed.section(u' ', 0, 0).toDouble() * (speed.endsWith(u" KB/s"_s) ? 1024 : 1);
        QVERIFY2(number > 2500 && number < 7500, qPrintable(speed));
    }
    // None before the first second, when a third of it was there.
    QVERIFY(rig.recorder->events.indexOf(u"DownloadSpeed "_s + speeds[0]) > rig.recorder->events.indexOf(u"DownloadProgress 23"_s));
    const QStringList percents = rig.recorder->of(u"DownloadProgress"_s);
    QVERIFY(percents.size() >= 10 && percents.contains(u"7"_s)); // 1000 of 13000, cut and not rounded
}

void tst_updates::retryAfterABrokenDownload()
{
    UpdateServer server(u"good"_s);
    Rig rig(server);
    const QString url = server.url(u"/R47.bin"_s).toString();
    server.answers.insert(u"/R47.bin"_s, {.headers = {"Content-Length: 8"}, .pieces = {"firm"}, .isSized = false});
    expect(kDownload + u"Connection closed"_s);
    QCOMPARE(rig.download(url), u"Failed"_s);
    // What the broken one left makes the next too long; then all is clean again.
    server.answers.insert(u"/R47.bin"_s, Answer::of("firmware"));
    expect(kDownload + u"not of the announced size"_s);
    QCOMPARE(rig.download(url), u"Failed"_s);
    QCOMPARE(rig.updater->files(), QStringList());
    QCOMPARE(rig.download(url), u"Success"_s);
    QCOMPARE(contentOf(filesBelow(mTemp->path()).value(0)), QByteArray("firmware"));
    // One that was refused for its size spoils nothing.
    rig.limit(100);
    server.answers.insert(u"/R47.bin"_s, {.headers = {}, .pieces = {QByteArray(5000, 'x')}, .isSized = false});
    expect(kDownload + u"too large"_s);
    QCOMPARE(rig.download(url), u"Failed"_s);
    server.answers.insert(u"/R47.bin"_s, Answer::of("new"));
    QCOMPARE(rig.download(url), u"Success"_s);
    QTRY_COMPARE(rig.updater->files().size(), 2);
    QCOMPARE(filesBelow(mTemp->path()), QStringList{rig.updater->files().constLast()});
    QCOMPARE(contentOf(rig.updater->files().constLast()), QByteArray("new"));
}

void tst_updates::retryOfUnknownSize()
{
    UpdateServer server(u"good"_s);
    Rig rig(server);
    const QString url = server.url(u"/R47.bin"_s).toString();
    server.answers.insert(u"/R47.bin"_s, {.headers = {"Content-Length: 8"}, .pieces = {"left"}, .isSized = false});
    expect(kDownload + u"Connection closed"_s);
    QCOMPARE(rig.download(url), u"Failed"_s);
    server.answers.insert(u"/R47.bin"_s, {.headers = {}, .pieces = {"firmware"}, .isSized = false});
    QCOMPARE(rig.download(url), u"Success"_s);
    QCOMPARE(contentOf(filesBelow(mTemp->path()).value(0)), QByteArray("leftfirmware"));
}

void tst_updates::fileIsPrivate()
{
    UpdateServer server(u"good"_s);
    server.answers.insert(u"/R47.bin"_s, Answer::of("x"));
    Rig rig(server);
    const QString url = server.url(u"/R47.bin"_s).toString();
    QCOMPARE(rig.download(url), u"Success"_s);
    const QFileInfo folder(QFileInfo(filesBelow(mTemp->path()).value(0)).path());
    QVERIFY(folder.path().startsWith(mTemp->path()));
    QCOMPARE(folder.permissions() & 0x77, QFile::Permissions()); // nothing for group and others
    // Without a place for it.
    const QString file = mTemp->filePath(u"file"_s);
    QVERIFY(QFile(file).open(QIODevice::WriteOnly));
    qputenv("TMPDIR", file.toLocal8Bit());
    expect(u"Failed to open file for writing: "_s + file + u"/R47.bin"_s);
    QCOMPARE(rig.download(url), u"Failed"_s);
}

void tst_updates::sizes()
{
    UpdateServer server(u"good"_s);
    const std::pair<int, QString> rows[] = {
        {1023, u"1023.0 B"_s}, {1024, u"1.0 KB"_s}, {1048575, u"1024.0 KB"_s}, {1048576, u"1.0 MB"_s}, {1, u"1.0 B"_s}};
    for (const auto& [bytes, text] : rows) {
        server.answers.insert(u"/a"_s, Answer::of(QByteArray(bytes, 'x')));
        Rig rig(server);
        QCOMPARE(rig.download(server.url(u"/a"_s).toString()), u"Success"_s);
        QCOMPARE(rig.recorder->of(u"DownloadFileSize"_s), QStringList{text});
        QCOMPARE(rig.recorder->of(u"DownloadCompleted"_s).constLast(), text);
    }
}

void tst_updates::gateway()
{
    UpdateServer server(u"good"_s);
    server.answers.insert(QLatin1StringView(kManifest), Answer::of(R"({"Software": {"Win": {"Version": "9.0.0"}}})"));
    UpdateSource source;
    {
        Updates without(source);
        QVERIFY(!without.hasHost() && !without.fetchAndWait());
        QList<bool> results;
        connect(&without, &UpdateGateway::fetchFinished, this, [&results](bool success) { results += success; });
        without.fetch();
        QTRY_COMPARE(results, QList<bool>{false});
    }
    source.manifest = server.url(QLatin1StringView(kManifest));
    Updates updates(source);
    QVERIFY(updates.hasHost() && updates.fetchAndWait());
    QCOMPARE(updates.manifestText({u"Software"_s, u"Win"_s, u"Version"_s}), u"9.0.0"_s);
    QList<bool> results;
    connect(&updates, &UpdateGateway::fetchFinished, this, [&results](bool success) { results += success; });
    updates.fetch();
    QTRY_COMPARE(results, QList<bool>{true});
    QCOMPARE(server.asked.size(), 2);

    QStringList told;
    const auto note = [&told](const QString& who) {
        return [&told, who](const QString& attribute, const QString& value) { told += who + attribute + value; };
    };
    connect(&updates, &UpdateGateway::softwareChanged, this, note(u"software "_s));
    connect(&updates, &UpdateGateway::firmwareChanged, this, note(u"firmware "_s));
    expect(u"Url is empty"_s);
    updates.downloadSoftware({});
    QTRY_COMPARE(told, QStringList({u"software DownloadStateStart"_s, u"software DownloadStateFailed"_s}));
    told.clear();
    expect(u"Url is empty"_s);
    updates.downloadFirmware({});
    QTRY_COMPARE(told, QStringList({u"firmware DownloadStateStart"_s, u"firmware DownloadStateFailed"_s}));
    told.clear();
    updates.updateFirmware(u"/nonexistent/R47.bin"_s);
    QTRY_COMPARE(told, QStringList{u"firmware UpdateStateFailed"_s});

    QCOMPARE(UpdaterSoftware::instance().currentVersion(), u"1.2.0"_s);
    QCOMPARE(UpdaterFirmwareM1::instance().currentVersion(), QString());
    updates.setFirmwareVersion(u"1.0.7"_s);
    QCOMPARE(UpdaterFirmwareM1::instance().currentVersion(), u"1.0.7"_s);
}

void tst_updates::namesAreLookedUp()
{
    UpdateServer server(u"good"_s);
    server.answers.insert(QLatin1StringView(kManifest), Answer::of("{}"));
    Rig rig(server, 2000);
    rig.source.manifest.setHost(u"localhost"_s);
    rig.updater->setSource(rig.source);
    QVERIFY(rig.updater->fetchInfoAndWait());
    rig.source.manifest.setHost(u"unknown.invalid"_s);
    rig.updater->setSource(rig.source);
    expect(kFetch + u"Host unknown.invalid not found"_s);
    QVERIFY(!rig.updater->fetchInfoAndWait());
}

// Nothing may wait for the resolver; least of all the end of the program, for which the network library would.
void tst_updates::silentNameServer()
{
    UpdateServer server(u"good"_s);
    Rig rig(server);
    rig.source.manifest.setHost(u"updates.invalid"_s);
    rig.updater->setSource(rig.source);
    gLookUps = 0;
    gResolverHangs = true;
    QElapsedTimer timer;
    timer.start();
    expect(kFetch + u"Request timed out"_s);
    QVERIFY(!rig.updater->fetchInfoAndWait());
    expect(kDownload + u"Request timed out"_s);
    QCOMPARE(rig.download(rig.source.manifest.toString()), u"Failed"_s);
    QVERIFY(timer.elapsed() >= 800 && timer.elapsed() < 3000);
    gResolverHangs = false;
    QCOMPARE(gLookUps, 2); // none by the network library, now or later
    QTest::qWait(100);
    QCOMPARE(gLookUps, 2);
}

void tst_updates::quitEndsAWaitingFetch()
{
    UpdateServer server(u"good"_s);
    server.answers.insert(QLatin1StringView(kManifest), {.headers = {}, .pieces = {"{"}, .isSized = false, .stalls = true});
    Rig rig(server, 20000);
    QTimer::singleShot(100, qApp, [] { QCoreApplication::exit(0); });
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!rig.updater->fetchInfoAndWait());
    QTimer::singleShot(5000, qApp, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0); // the wish reaches the loop that had not run yet
    QVERIFY(timer.elapsed() < 2000);
}

void tst_updates::threadEndsInTheMiddle_data()
{
    QTest::addColumn<bool>("fetches");
    QTest::newRow("fetch") << true;
    QTest::newRow("download") << false;
}

// The last test: the singletons end with their thread.
void tst_updates::threadEndsInTheMiddle()
{
    QFETCH(const bool, fetches);
    UpdateServer server(u"good"_s);
    const QString path = QLatin1StringView(kManifest);
    server.answers.insert(path, {.headers = {}, .pieces = QList<QByteArray>(400, QByteArray(100, ' ')), .pauseMs = 20});
    Rig rig(server, 20000);
    const QPointer<UpdaterBase> watch = rig.updater;
    if (fetches) {
        rig.updater->fetchInfo();
    } else {
        rig.updater->download(rig.source.manifest.toString());
    }
    QTRY_VERIFY(!server.asked.isEmpty());
    QTest::qWait(100);
    QElapsedTimer timer;
    timer.start();
    UpdateThread::stop();
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(watch.isNull());
    QVERIFY(!UpdateThread::isRunning());
    UpdateThread::stop();
}

QTEST_GUILESS_MAIN(tst_updates)
#include "tst_updates.moc"
