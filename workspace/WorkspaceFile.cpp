#include "workspace/WorkspaceFile.h"

#include "workspace/WorkspaceSettings.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QScopeGuard>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

// A workspace of the largest page takes about 40 KB.
constexpr qint64 LargestFile = 8 * 1024 * 1024;
constexpr int LongestName = 128;
constexpr qint64 ChunkBytes = 64 * 1024;

QString dateFormat()
{
    return u"yyyy-MM-dd HH:mm:ss"_s;
}

QString headerKey(const QString& key)
{
    return "ConfigFileHeader/"_L1 + key;
}

void writeCreation(QSettings& settings)
{
    settings.setValue(headerKey(u"CreateUser"_s), QDir(QStandardPaths::writableLocation(QStandardPaths::HomeLocation)).dirName());
    settings.setValue(headerKey(u"CreateDate"_s), QDateTime::currentDateTime().toString(dateFormat()));
}

QString freeNameBeside(const QString& path)
{
    QTemporaryFile file(path + ".XXXXXX"_L1);
    return file.open() ? file.fileName() : QString();
}

// Runs change on settings of a file under a free name beside path; that file then replaces path. source: what it starts as, or
// empty.
template<typename Change> bool stage(const QString& source, const QString& path, Change change)
{
    const QString name = freeNameBeside(path);
    if (name.isEmpty() || !hasRoomBeside(path)) {
        return false;
    }
    const auto cleanUp = qScopeGuard([&name] { QFile::remove(name); });
    if (!source.isEmpty() && !replaceFile(source, name)) {
        return false;
    }
    QSettings settings(name, QSettings::IniFormat);
    change(settings);
    settings.sync();
    return settings.status() == QSettings::NoError && replaceFile(name, path);
}

// Whether a line is there that is neither section, value, nor comment. Looked at here, because Qt's settings objects share what
// they have parsed and tell of a bad file only once. Values written by them have no raw line ends.
bool isForeignFormat(QByteArrayView content)
{
    if (content.startsWith("\xef\xbb\xbf")) {
        content = content.sliced(3);
    }
    for (qsizetype start = 0; start < content.size();) {
        const qsizetype found = content.indexOf('\n', start);
        const qsizetype end = found < 0 ? content.size() : found;
        const QByteArrayView line = content.sliced(start, end - start).trimmed();
        const bool known = line.isEmpty() || line.startsWith(';') || line.contains(line.startsWith('[') ? ']' : '=');
        if (!known) {
            return true;
        }
        start = end + 1;
    }
    return false;
}

} // namespace

bool isWorkspaceName(const QString& name)
{
    if (name.isEmpty() || name.size() > LongestName || name == "."_L1 || name == ".."_L1) {
        return false;
    }
    return !name.contains(u'/') && !name.contains(u'\\') && !name.contains(QChar(u'\0'));
}

QString headerValue(const QString& path, const QString& key)
{
    const QFileInfo file(path);
    if (!file.isFile() || file.size() > LargestFile) {
        return {};
    }
    if (const WorkspaceSettings* store = WorkspaceSettings::find(path)) {
        return store->value(headerKey(key)).toString();
    }
    return QSettings(path, QSettings::IniFormat).value(headerKey(key)).toString();
}

QDateTime creationDate(const QString& path)
{
    return QDateTime::fromString(headerValue(path, u"CreateDate"_s), dateFormat());
}

bool isDamaged(const QString& path)
{
    QFile file(path);
    if (file.size() > LargestFile || !file.open(QIODevice::ReadOnly)) {
        return true;
    }
    const QByteArray content = file.readAll();
    return content.contains('\0') || isForeignFormat(content);
}

bool hasHeader(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.readAll().contains("[ConfigFileHeader]");
}

QString keepAside(const QString& path)
{
    const QFileInfo file(path);
    const QString base = QDir(file.path()).filePath(file.completeBaseName() + ".damaged-"_L1);
    int number = 1;
    while (QFileInfo(base + QString::number(number)).isSymLink() || QFileInfo::exists(base + QString::number(number))) {
        ++number;
    }
    const QString aside = base + QString::number(number);
    // A second name for the same file costs neither time nor space; replacing the first name leaves the second one alone.
    std::error_code error;
    std::filesystem::create_hard_link(file.filesystemCanonicalFilePath(), QFileInfo(aside).filesystemAbsoluteFilePath(), error);
    return !error || replaceFile(path, aside) ? aside : QString();
}

bool hasRoomBeside(const QString& path)
{
    QTemporaryFile trial(path + ".XXXXXX"_L1);
    // More than a stream's buffer, so that it goes to the system at once.
    const QByteArray bytes(static_cast<qsizetype>(std::min(QFileInfo(path).size(), LargestFile) + ChunkBytes), 'x');
    return QDir().mkpath(QFileInfo(path).path()) && trial.open() && trial.write(bytes) == bytes.size();
}

bool replaceFile(const QString& source, const QString& target)
{
    QFile in(source);
    QSaveFile out(target);
    if (!WorkspaceSettings::settle(target) || !in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly)) {
        return false;
    }
    while (!in.atEnd()) {
        const QByteArray chunk = in.read(ChunkBytes);
        if (chunk.isEmpty() || out.write(chunk) != chunk.size()) {
            return false;
        }
    }
    // Qt 6.4's commit() does not look at its own last flush.
    return in.error() == QFileDevice::NoError && out.flush() && out.commit();
}

bool writeEmptyWorkspace(const QString& path, const QString& deviceName)
{
    return QDir().mkpath(QFileInfo(path).path()) && stage({}, path, [&](QSettings& settings) {
               settings.setValue(headerKey(u"DeviceName"_s), deviceName);
               writeCreation(settings);
           });
}

bool writeCopiedWorkspace(const QString& source, const QString& path)
{
    return stage(source, path, writeCreation);
}

bool releaseStaleLock(const QString& path)
{
    const QString name = path + ".lock"_L1;
    if (!QFileInfo::exists(name)) {
        return true;
    }
    QLockFile lock(name);
    lock.setStaleLockTime(1000);
    return lock.tryLock(1500);
}

} // namespace quillon
