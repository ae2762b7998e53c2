#include "app/AppSettingsSubject.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace
{

constexpr int LayoutNumber = 6;

struct Default {
    const char* key;
    QVariant value;
};

// A run that ended in the middle of a write can leave an empty lock file, for which a settings object waits for ever.
void releaseStaleLock(const QString& file)
{
    const QString path = file + ".lock"_L1;
    if (!QFileInfo::exists(path)) {
        return;
    }
    QLockFile lock(path);
    lock.setStaleLockTime(1000);
    if (!lock.tryLock(1500)) {
        qWarning("AppSettingsSubject::init //settings file is locked");
    }
}

// Named before main: settings, lock and data directory depend on the identity.
[[maybe_unused]] const AppSettingsSubject& beforeMain = AppSettingsSubject::instance();

} // namespace

QVariant AppSettingsObserver::settingValue(QAnyStringView key)
{
    return QSettings().value(key);
}

AppSettingsSubject& AppSettingsSubject::instance()
{
    static AppSettingsSubject subject;
    return subject;
}

AppSettingsSubject::AppSettingsSubject()
{
    QCoreApplication::setOrganizationName(u"ZELMORA"_s);
    QCoreApplication::setOrganizationDomain(u"zelmora.example"_s);
    QCoreApplication::setApplicationName(u"ZELMORA Quillon"_s);
}

bool AppSettingsSubject::init()
{
    QSettings settings;
    releaseStaleLock(settings.fileName());
    if (settings.value("ResetFlag").toInt() != LayoutNumber) {
        const QStringList keys = settings.allKeys();
        for (const QString& key : keys) {
            settings.remove(key);
        }
        settings.setValue("ResetFlag", LayoutNumber);
    }
    const Default defaults[] = {
        {"Language", u"English"_s}, {"ScaleFactor", 1.5},          {"FollowSystemScale", true},
        {"AutoStartOnBoot", true},  {"AutoCheckForUpdates", true}, {"AutoSaveWorkspace", true},
    };
    for (const Default& entry : defaults) {
        if (!settings.contains(entry.key)) {
            settings.setValue(entry.key, entry.value);
        }
    }
    return true;
}

AppSettingsSubject& AppSettingsSubject::addObserver(AppSettingsObserver* observer)
{
    mObservers.append(observer);
    return *this;
}

AppSettingsSubject& AppSettingsSubject::addObservers(const QList<AppSettingsObserver*>& observers)
{
    mObservers.append(observers);
    return *this;
}

AppSettingsSubject& AppSettingsSubject::removeAllObservers()
{
    mObservers.clear();
    return *this;
}

AppSettingsSubject& AppSettingsSubject::changeLanguage(const QString& value)
{
    change(u"Language"_s, value);
    return *this;
}

AppSettingsSubject& AppSettingsSubject::changeScaleFactor(const QString& value)
{
    change(u"ScaleFactor"_s, value);
    return *this;
}

void AppSettingsSubject::change(const QString& key, const QString& value)
{
    // A write waits for the disk, and each hello of the device brings the stored values again.
    if (QSettings settings; settings.value(key).toString() != value) {
        settings.setValue(key, value);
    }
    const QString source = u"AppSettings"_s;
    emit attributeChanged(source, "Modify"_L1 + key, value);
    emit attributeChanged(source, "Change"_L1 + key, u"1"_s);
    // An observer may empty the list because the console goes: those who were on it are no longer there to be told.
    const QList<AppSettingsObserver*> audience = mObservers;
    for (AppSettingsObserver* observer : audience) {
        if (mObservers.contains(observer)) {
            observer->onAppSettingsChanged(QString(), key, value);
        }
    }
    emit attributeChanged(source, "Change"_L1 + key, u"0"_s);
}
