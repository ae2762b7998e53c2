#include "Recorder.h"
#include "ZipWriter.h"
#include "update/Unpack.h"
#include "update/UpdaterFirmwareM1.h"
#include "update/UpdaterSoftware.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace quillon;

namespace
{

const QByteArray kSetup = "#!/bin/sh\nprintf '%s' \"$0\" > \"$SETUP_MARK\"\n";

QString write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? path : QString();
}

QStringList relative(const QStringList& files, const QString& folder)
{
    QStringList names;
    for (const QString& file : files) {
        names += file.mid(folder.size() + 1);
    }
    return names;
}

} // namespace

class tst_update_files : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void unpacks();
    void hostile_data();
    void hostile();
    void cutAnywhere();
    void damagedAnywhere();
    void bounds();
    void setupIsStarted();
    void setupFailures_data();
    void setupFailures();
    void firmwareFailures_data();
    void firmwareFailures();
    void imageOfAnArchive();

private:
    QString path(const QString& name) const { return mPlace->path() + u'/' + name; }

    std::unique_ptr<QTemporaryDir> mPlace; // holds all that a test writes
};

void tst_update_files::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    qunsetenv("TMPDIR");
    mPlace = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(mPlace->path()).mkpath(u"tmp"_s) && QDir(mPlace->path()).mkpath(u"to"_s));
    qputenv("TMPDIR", path(u"tmp"_s).toLocal8Bit());
    qputenv("SETUP_MARK", path(u"mark"_s).toLocal8Bit());
}

void tst_update_files::unpacks()
{
    const QString archive = write(path(u"a.zip"_s), ZipWriter::archive({{"b/", {}, 040755},
                                                                        {"b/c/d.txt", "deep"},
                                                                        {"ü 音.bin", QByteArray(200000, 'x'), 0},
                                                                        {"..a..", "odd"},
                                                                        {"empty", {}}}));
    QCOMPARE(unpack(archive, path(u"to"_s)), QString());
    QCOMPARE(relative(filesBelow(path(u"to"_s)), path(u"to"_s)),
             QStringList({u"..a.."_s, u"b/c/d.txt"_s, u"empty"_s, u"ü 音.bin"_s}));
    QCOMPARE(contentOf(path(u"to/b/c/d.txt"_s)), QByteArray("deep"));
    QCOMPARE(contentOf(path(u"to/ü 音.bin"_s)), QByteArray(200000, 'x'));
    QVERIFY(QDir(path(u"only"_s)).mkpath(u"."_s));
    QCOMPARE(unpack(archive, path(u"only"_s), u"empty"_s), QString());
    QCOMPARE(relative(filesBelow(path(u"only"_s)), path(u"only"_s)), QStringList{u"empty"_s});
}

void tst_update_files::hostile_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<uint>("mode");
    const auto row = [](const char* title, const QByteArray& name, uint mode = 0100644) { QTest::newRow(title) << name << mode; };
    row("above", "../out.run");
    row("above from inside", "b/../../out.run");
    row("above and back", "b/../c.run");
    row("dots alone", "..");
    row("here", "./c.run");
    row("absolute", "/tmp/quillon-out.run");
    row("doubled", "b//c.run");
    row("backslash", "..\\out.run");
    row("drive", "c:out.run");
    row("line end", "a\nb.run");
    row("no name", "");
    row("symbolic link", "link", 0120777);
    row("folder's link", "b", 0120777);
    row("device", "null", 0020666);
    row("block device", "sda", 0060666);
    row("socket", "socket", 0140666);
    row("twice", "QuillonSetup.run");
    row("file for a folder", "QuillonSetup.run/x");
}

void tst_update_files::hostile()
{
    QFETCH(const QByteArray, name);
    QFETCH(const uint, mode);
    const QString link = path(u"target"_s);
    const QList<ZipEntry> entries = {
        {"QuillonSetup.run", kSetup}, {"R47.bin", "image"}, {name, link.toLocal8Bit(), mode}, {"b/last", "x"}};
    const QString archive = write(path(u"R47.zip"_s), ZipWriter::archive(entries));
    const QStringList before = filesBelow(mPlace->path());
    UpdaterSoftware& software = UpdaterSoftware::instance();
    Recorder told(software);
    expect(u"Failed to start update process: "_s);
    software.update(archive);
    QCOMPARE(told.outcome(u"Update"_s), u"Failed"_s);
    UpdaterFirmwareM1& firmware = UpdaterFirmwareM1::instance();
    Recorder toldOfFirmware(firmware);
    // One file is wanted here, which an entry that meets another of them does not touch.
    const bool isRefused = !name.startsWith("QuillonSetup");
    expect(isRefused ? u"Failed to unpack firmware: "_s : u"USBAudioAPI::setDFUStart //no device connected"_s);
    firmware.update(archive);
    QCOMPARE(toldOfFirmware.outcome(u"Update"_s), u"Failed"_s);
    QStringList after = filesBelow(mPlace->path());
    if (!isRefused) {
        QCOMPARE(after.removeAll(path(u"R47.bin"_s)), 1);
    }
    QCOMPARE(after, before);
    QVERIFY(QDir(path(u"tmp"_s)).isEmpty());
}

void tst_update_files::cutAnywhere()
{
    const QByteArray whole = ZipWriter::archive({{"R47.bin", "image of it"}, {"b/note", "text"}});
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const QString archive = write(path(u"a.zip"_s), whole.left(length));
        QTemporaryDir to;
        QVERIFY2(!unpack(archive, to.path()).isEmpty(), qPrintable(QString::number(length)));
    }
    QVERIFY(!unpack(path(u"absent.zip"_s), path(u"to"_s)).isEmpty());
    const QString twice = write(path(u"twice.zip"_s), ZipWriter::archive({{"a", "1"}, {"a", "2"}}));
    QVERIFY(!unpack(twice, path(u"to"_s)).isEmpty());
    // Other kinds of archives, which may hold other kinds of links, are none.
    QByteArray tape(1024, '\0');
    tape.replace(0, 4, "name").replace(100, 7, "0000644").replace(124, 11, "00000000000").replace(257, 5, "ustar");
    QVERIFY(!unpack(write(path(u"tape.zip"_s), tape), path(u"to"_s)).isEmpty());
}

void tst_update_files::damagedAnywhere()
{
    // Whatever byte is wrong: refused, or unpacked into the folder; nothing else happens.
    const QByteArray whole = ZipWriter::archive({{"R47.bin", "image of it"}, {"b/note", "text"}});
    const QStringList before = filesBelow(mPlace->path());
    for (qsizetype at = 0; at < whole.size(); ++at) {
        for (const char flip : {'\x01', '\x80', '\xff'}) {
            QByteArray bytes = whole;
            bytes[at] = static_cast<char>(bytes[at] ^ flip);
            const QTemporaryDir to;
            const QString archive = write(to.filePath(u"a.zip"_s), bytes);
            QVERIFY(QDir(to.path()).mkpath(u"in"_s));
            const bool accepted = unpack(archive, to.filePath(u"in"_s)).isEmpty();
            const QByteArray image = contentOf(to.filePath(u"in/R47.bin"_s));
            QVERIFY2(!accepted || image == "image of it" || image == "no such file", qPrintable(QString::number(at)));
            QVERIFY(filesBelow(to.path()).size() <= 3);
        }
    }
    QCOMPARE(filesBelow(mPlace->path()), before);
}

void tst_update_files::bounds()
{
    QList<ZipEntry> entries(10, {{}, QByteArray(1000, 'x')});
    for (int i = 0; i < entries.size(); ++i) {
        entries[i].name = "f" + QByteArray::number(i);
    }
    const QString archive = write(path(u"a.zip"_s), ZipWriter::archive(entries));
    const std::tuple<qint64, int, QString> rows[] = {
        {10000, 10, {}}, {9999, 10, u"too large"_s}, {10000, 9, u"too many entries"_s}};
    for (const auto& [bytes, count, refusal] : rows) {
        const QTemporaryDir to;
        QCOMPARE(unpack(archive, to.path(), {}, {bytes, count}), refusal);
    }
}

void tst_update_files::setupIsStarted()
{
    const QString archive = write(path(u"quillon.zip"_s), ZipWriter::archive({{"bSetup.run", "#!/bin/false\n"},
                                                                              {"aSetup-1.3.run", kSetup},
                                                                              {"Setup/0Setup.run", "#!/bin/false\n"},
                                                                              {"0setup.run", "#!/bin/false\n"},
                                                                              {"0Setup.RUN", "#!/bin/false\n"}}));
    UpdaterSoftware& updater = UpdaterSoftware::instance();
    Recorder told(updater);
    updater.update(archive);
    QTimer::singleShot(10000, qApp, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0); // it ends the application
    QCOMPARE(told.events, QStringList({u"UpdateState Start"_s, u"UpdateProgress 100"_s, u"UpdateState Success"_s}));
    QTRY_VERIFY(!contentOf(path(u"mark"_s)).isEmpty() && QFileInfo::exists(path(u"mark"_s)));
    const QFileInfo setup(QString::fromLocal8Bit(contentOf(path(u"mark"_s))));
    QCOMPARE(setup.fileName(), u"aSetup-1.3.run"_s);
    QCOMPARE(setup.permissions() & 0x77, QFile::Permissions());
    QVERIFY(setup.filePath().startsWith(path(u"tmp"_s)));
}

void tst_update_files::setupFailures_data()
{
    QTest::addColumn<QByteArray>("archive"); // empty: there is none
    QTest::addColumn<QString>("log");
    const QString failed = u"Failed to start update process: "_s;
    QTest::newRow("missing") << QByteArray() << u"Update file does not exist: "_s;
    QTest::newRow("no archive") << QByteArray("text") << failed;
    QTest::newRow("no setup") << ZipWriter::archive({{"quillon.run", kSetup}, {"QuillonSetup.exe", "MZ"}}) << failed;
    QTest::newRow("does not start") << ZipWriter::archive({{"Setup.run", "#!/nonexistent/shell\n"}}) << failed;
}

void tst_update_files::setupFailures()
{
    QFETCH(const QByteArray, archive);
    QFETCH(const QString, log);
    if (!archive.isEmpty()) {
        write(path(u"a.zip"_s), archive);
    }
    UpdaterSoftware& updater = UpdaterSoftware::instance();
    Recorder told(updater);
    expect(log);
    updater.update(path(u"a.zip"_s));
    QCOMPARE(told.outcome(u"Update"_s), u"Failed"_s);
    QCOMPARE(told.events, QStringList({u"UpdateState Start"_s, u"UpdateState Failed"_s}));
    QVERIFY(QDir(path(u"tmp"_s)).isEmpty());
    QVERIFY(!QFileInfo::exists(path(u"mark"_s)));
}

void tst_update_files::firmwareFailures_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content"); // empty: no such file
    QTest::addColumn<QString>("log");
    const QByteArray good = ZipWriter::archive({{"R47.bin", "image"}});
    const QString refused = u"Failed to unpack firmware: "_s;
    const auto row = [](const char* title, const QString& name, const QByteArray& content, const QString& log) {
        QTest::newRow(title) << name << content << log;
    };
    row("missing", u"R47.bin"_s, {}, {});
    row("missing archive", u"R47.zip"_s, {}, {});
    row("neither", u"R47.hex"_s, "image", {});
    row("upper-case archive", u"R47.ZIP"_s, good, {});
    row("upper-case image", u"R47.BIN"_s, "image", {});
    row("no archive", u"R47.zip"_s, "text", refused);
    row("cut archive", u"R47.zip"_s, good.chopped(1), refused);
    row("image of another name", u"R47.zip"_s, ZipWriter::archive({{"R48.bin", "image"}}), refused);
    row("image in a folder", u"R47.zip"_s, ZipWriter::archive({{"a/R47.bin", "image"}}), refused);
    row("folder for an image", u"R47.zip"_s, ZipWriter::archive({{"R47.bin/", {}, 040755}}), refused);
    row("image, but no driver", u"R47.bin"_s, "image", u"USBAudioAPI::setDFUStart //no device connected"_s);
}

void tst_update_files::firmwareFailures()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, content);
    QFETCH(const QString, log);
    if (!content.isEmpty()) {
        write(path(name), content);
    }
    const QStringList before = filesBelow(mPlace->path());
    UpdaterFirmwareM1& updater = UpdaterFirmwareM1::instance();
    Recorder told(updater);
    if (!log.isEmpty()) {
        expect(log);
    }
    updater.update(path(name));
    QCOMPARE(told.outcome(u"Update"_s), u"Failed"_s);
    QCOMPARE(told.events, QStringList{u"UpdateState Failed"_s});
    QCOMPARE(filesBelow(mPlace->path()), before);
}

void tst_update_files::imageOfAnArchive()
{
    // The complete base name counts, nothing else gets beside the archive, and what lay there under the image's name is replaced.
    const QString archive = write(path(u"R47.1.0.zip"_s), ZipWriter::archive({{"R47.1.0.bin", "new"}, {"precious", "theirs"}}));
    write(path(u"R47.1.0.bin"_s), "old");
    write(path(u"precious"_s), "mine");
    UpdaterFirmwareM1& updater = UpdaterFirmwareM1::instance();
    Recorder told(updater);
    expect(u"USBAudioAPI::setDFUStart //no device connected"_s);
    updater.update(archive);
    QCOMPARE(told.outcome(u"Update"_s), u"Failed"_s);
    QCOMPARE(contentOf(path(u"R47.1.0.bin"_s)), QByteArray("new"));
    QCOMPARE(contentOf(path(u"precious"_s)), QByteArray("mine"));
    QCOMPARE(filesBelow(mPlace->path()).size(), 3);
}

QTEST_GUILESS_MAIN(tst_update_files)
#include "tst_update_files.moc"
