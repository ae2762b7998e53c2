#include "app/WorkingFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace quillon
{

namespace
{

// By trying: permission bits tell nothing about read-only media, nor on every platform about access lists.
bool isWritable(const QString& folder)
{
    QTemporaryFile probe(QDir(folder).filePath(u".quillon-XXXXXX"_s));
    return probe.open();
}

} // namespace

QString enterWorkingFolder()
{
    return enterWorkingFolder(QCoreApplication::applicationDirPath(),
                              QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
}

QString enterWorkingFolder(const QString& program, const QString& userData)
{
    QString chosen = program;
    if (!isWritable(program)) {
        if (QDir().mkpath(userData) && isWritable(userData)) {
            chosen = userData;
        } else {
            qWarning("enterWorkingFolder //no writable folder");
        }
    }
    QDir::setCurrent(chosen);
    return chosen;
}

} // namespace quillon
