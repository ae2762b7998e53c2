#include "workspace/WorkspaceChoice.h"

#include "workspace/WorkspaceSubject.h"

#include <QDateTime>
#include <QSettings>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon
{

QString uniqueName(const QString& text, const QStringList& taken)
{
    if (!text.isEmpty()) {
        return taken.contains(text) ? QString() : text;
    }
    QDateTime time = QDateTime::currentDateTime();
    QString name = time.toString(u"yyyy-MMdd-hhmm-ss"_s);
    while (taken.contains(name)) {
        time = time.addSecs(1);
        name = time.toString(u"yyyy-MMdd-hhmm-ss"_s);
    }
    return name;
}

QString openRememberedWorkspace(WorkspaceSubject& subject, int mode)
{
    const QStringList names = subject.workspaceNames();
    const auto valid = [&subject](const QString& name) { return subject.isWorkspaceValid(name); };
    QString chosen = QSettings().value(subject.rememberKey()).toString();
    if (!names.contains(chosen) || !valid(chosen)) {
        if (names.contains(chosen)) {
            qWarning("openRememberedWorkspace //remembered file is not a workspace of this device");
        }
        const auto first = std::find_if(names.begin(), names.end(), valid);
        chosen = first != names.end() ? *first : QString();
    }
    if (chosen.isEmpty()) {
        chosen = uniqueName(QString(), names);
        subject.createWorkspace(chosen);
    }
    subject.modifyWorkspace(chosen, mode);
    // A page that could not open its own must not go on in the workspace of the page before: their groups have the same names.
    if (!subject.isCurrent(chosen)) {
        subject.close();
    }
    return chosen;
}

int workspaceMode()
{
    return QSettings().value("AutoSaveWorkspace").toBool() ? 0 : 1;
}

} // namespace quillon
