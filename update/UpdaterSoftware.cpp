#include "update/UpdaterSoftware.h"

#include "update/PlatformSteps.h"
#include "update/UpdateThread.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace quillon;

const QString& UpdaterSoftware::programVersion()
{
    static const QString version = u"1.2.0"_s;
    return version;
}

UpdaterSoftware& UpdaterSoftware::instance()
{
    static auto* const self = new UpdaterSoftware;
    return *self;
}

UpdaterSoftware::UpdaterSoftware()
{
    setCurrentVersion(programVersion());
}

void UpdaterSoftware::update(const QString& path)
{
    UpdateThread::post([this, path] {
        emit attributeChanged(u"UpdateState"_s, u"Start"_s);
        const bool started = start(path);
        if (started) {
            emit attributeChanged(u"UpdateProgress"_s, u"100"_s);
        }
        emit attributeChanged(u"UpdateState"_s, started ? u"Success"_s : u"Failed"_s);
        if (started) {
            QMetaObject::invokeMethod(QCoreApplication::instance(), "exit", Qt::QueuedConnection, Q_ARG(int, 0));
        }
    });
}

bool UpdaterSoftware::start(const QString& path)
{
    if (!QFileInfo::exists(path)) {
        qWarning().noquote() << "Update file does not exist:" << path;
        return false;
    }
    const QString failure = startSetup(path);
    if (!failure.isEmpty()) {
        qWarning().noquote() << "Failed to start update process:" << failure;
    }
    return failure.isEmpty();
}
