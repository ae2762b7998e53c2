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

QString workspaceToOpen(const WorkspaceSubject& subject, const QStringList& names, const QString& remembered)
{
    const auto valid = [&subject](const QString& name) { return subject.isWorkspaceValid(name); };
    if (names.contains(remembered)) {
        if (valid(remembered)) {
            return remembered;
        }
        qWarning("workspaceToOpen //remembered file is not a workspace of this device");
    }
    const auto first = std::find_if(names.begin(), names.end(), valid);
    return first != names.end() ? *first : QString();
}

int workspaceMode()
{
    return QSettings().value("AutoSaveWorkspace").toBool() ? 0 : 1;
}

} // namespace quillon
