#include "device/DriverLibrary.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <dlfcn.h>

using namespace Qt::StringLiterals;

namespace quillon
{

DriverLibrary::~DriverLibrary()
{
    unload();
}

int DriverLibrary::load()
{
    unload();
    const QString path = registeredPath();
    if (path.isEmpty()) {
        return NotRegistered;
    }
    if (!QFileInfo(path).isFile()) {
        return FileMissing;
    }
    mModule = dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_LOCAL);
    return mModule ? Loaded : NotLoadable;
}

void* DriverLibrary::resolve(const char* name) const
{
    return mModule ? dlsym(mModule, name) : nullptr;
}

void DriverLibrary::unload()
{
    if (mModule) {
        dlclose(mModule);
        mModule = nullptr;
    }
}

/// The first registration counts, the user's before the system's. A relative path is none: it would depend on where the program
/// was started.
QString DriverLibrary::registeredPath()
{
    const QString key = u"CLSID/"_s + QString::fromUtf16(kClassId) + u"/InprocServer32"_s;
    const QStringList files = QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, u"TUSBAUDIO.conf"_s);
    for (const QString& file : files) {
        const QString path = QSettings(file, QSettings::IniFormat).value(key).toString();
        if (QDir::isAbsolutePath(path)) {
            return path;
        }
    }
    return {};
}

} // namespace quillon
