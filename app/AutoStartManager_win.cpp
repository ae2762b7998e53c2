#include "app/AutoStartManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

using namespace Qt::StringLiterals;

void AutoStartManager::setAutoStart(bool enable)
{
    QSettings run(uR"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Run)"_s, QSettings::NativeFormat);
    const QString name = QCoreApplication::applicationName();
    if (enable) {
        run.setValue(name, u"\"%1\""_s.arg(QDir::toNativeSeparators(QCoreApplication::applicationFilePath())));
    } else {
        run.remove(name);
    }
}
