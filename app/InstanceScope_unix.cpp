#include "app/InstanceScope.h"

#include <QDir>
#include <QFile>
#include <QSharedMemory>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

constexpr int kTurnMs = 1000;
constexpr int kLookMs = 2;

// Nobody else can put anything there. A link is no folder.
bool isOwnFolder(const QString& path)
{
    struct stat info {
    };
    return QDir::isAbsolutePath(path) && ::lstat(QFile::encodeName(path).constData(), &info) == 0 && S_ISDIR(info.st_mode) &&
           info.st_uid == ::geteuid() && (info.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

// Shared by all programs of a log-in. Without a session (a terminal of another machine) it is one among the temporary files.
QString ownFolder()
{
    if (QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR"); isOwnFolder(runtime)) {
        return runtime;
    }
    QString folder = QDir::tempPath() + "/quillon-"_L1 + QString::number(::geteuid());
    ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
    return isOwnFolder(folder) ? folder : QString();
}

int openOwn(const QString& path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
}

class FileTurn : public InstanceScope::Turn
{
public:
    explicit FileTurn(int file) : mFile(file) {}
    ~FileTurn() override { ::close(mFile); }
    FileTurn(const FileTurn&) = delete;
    FileTurn& operator=(const FileTurn&) = delete;

private:
    int mFile;
};

} // namespace

InstanceScope::InstanceScope(const QString& name)
{
    if (const QString folder = ownFolder(); !folder.isEmpty()) {
        mServerName = folder + u'/' + name;
    }
}

void InstanceScope::nameMemory(QSharedMemory& memory) const
{
    if (mServerName.isEmpty()) {
        return;
    }
    // The key is made of the file's number. Memory that was left under a number outlives the file, and a new file may get that
    // number: it has to be there for the old memory to be found.
    const QString path = mServerName + ".memory"_L1;
    if (const int file = openOwn(path); file >= 0) {
        ::close(file);
    }
    memory.setNativeKey(path);
}

std::unique_ptr<InstanceScope::Turn> InstanceScope::takeTurn() const
{
    const int file = mServerName.isEmpty() ? -1 : openOwn(mServerName + ".lock"_L1);
    if (file < 0) {
        return nullptr;
    }
    auto turn = std::make_unique<FileTurn>(file);
    for (int waited = 0; ::flock(file, LOCK_EX | LOCK_NB) != 0; waited += kLookMs) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || waited >= kTurnMs) {
            return nullptr;
        }
        QThread::msleep(kLookMs);
    }
    return turn;
}

} // namespace quillon
