#include "update/PlatformSteps.h"

#include "update/Unpack.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>
#include <netdb.h>

using namespace Qt::StringLiterals;

namespace quillon
{

void lookUpHost(const char* name)
{
    addrinfo* found = nullptr;
    if (::getaddrinfo(name, nullptr, nullptr, &found) == 0) {
        ::freeaddrinfo(found);
    }
}

QString startSetup(const QString& archive)
{
    // A fresh folder of this user's: the setup lies nowhere that others can write, and a refused archive leaves nothing.
    QTemporaryDir folder(QDir::tempPath() + u"/quillon-setup-XXXXXX"_s);
    if (!folder.isValid()) {
        return folder.errorString();
    }
    if (const QString refusal = unpack(archive, folder.path()); !refusal.isEmpty()) {
        return refusal;
    }
    const QStringList setups = QDir(folder.path()).entryList({u"*Setup*.run"_s}, QDir::Files | QDir::CaseSensitive, QDir::Name);
    if (setups.isEmpty()) {
        return u"no setup program in the archive"_s;
    }
    const QString setup = folder.filePath(setups.first());
    QFile::setPermissions(setup, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcess process;
    process.setProgram(setup);
    if (!process.startDetached()) {
        return process.errorString();
    }
    folder.setAutoRemove(false);
    return {};
}

bool unpackImage(const QString& archive, const QString& image)
{
    const QFileInfo place(image);
    // Beside its place, so that it gets there in one step and nothing else of the archive does.
    QTemporaryDir folder(place.path() + u"/.quillon-XXXXXX"_s);
    QString refusal = folder.isValid() ? unpack(archive, folder.path(), place.fileName()) : folder.errorString();
    if (refusal.isEmpty() &&
        std::rename(QFile::encodeName(folder.filePath(place.fileName())).constData(), QFile::encodeName(image).constData()) != 0) {
        refusal = u"no image of its name"_s;
    }
    if (!refusal.isEmpty()) {
        qWarning().noquote() << "Failed to unpack firmware:" << refusal;
    }
    return refusal.isEmpty();
}

} // namespace quillon
