#include "workspace/WorkspaceObserver.h"

#include "workspace/WorkspaceSettings.h"

void WorkspaceObserver::saveValue(QAnyStringView key, QVariant value)
{
    QSettings* settings = store();
    if (settings == nullptr) {
        return;
    }
    settings->beginGroup(mGroup);
    settings->setValue(key, value);
    settings->endGroup();
    if (auto* collecting = qobject_cast<quillon::WorkspaceSettings*>(settings)) {
        collecting->noteChange();
    }
}

QVariant WorkspaceObserver::loadValue(QAnyStringView key)
{
    QSettings* settings = store();
    if (settings == nullptr) {
        return {};
    }
    settings->beginGroup(mGroup);
    QVariant value = settings->value(key);
    settings->endGroup();
    return value;
}

bool WorkspaceObserver::hasValue(const QString& key) const
{
    QSettings* settings = store();
    if (settings == nullptr) {
        return false;
    }
    settings->beginGroup(mGroup);
    const bool found = settings->contains(key);
    settings->endGroup();
    return found;
}
