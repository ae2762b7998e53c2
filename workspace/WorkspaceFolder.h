#pragma once

#include <QString>
#include <QStringList>

namespace quillon
{

/// Where the workspaces of a work mode are: one folder, in which their files start with one prefix. A value; GUI thread.
class WorkspaceFolder
{
public:
    WorkspaceFolder() = default;
    /// Creates the folder; where that fails, with one warning, one in the system's folder for temporary files takes its place: a
    /// workspace that has to be looked for is better than controls whose values nothing keeps.
    WorkspaceFolder(const QString& deviceName, const QString& folder, const QString& prefix);

    /// Whether model, folder and prefix are all known.
    bool isComplete() const { return !mDeviceName.isEmpty() && !mFolder.isEmpty() && !mPrefix.isEmpty(); }
    const QString& deviceName() const { return mDeviceName; }
    /// The file of a workspace, whether there is one or not. Only for a name that isWorkspaceName() accepts.
    QString filePath(const QString& name) const;
    /// Names of the workspaces there are, oldest first; one without a date counts as the oldest.
    QStringList names() const;
    /// Whether the file's header tells of this model.
    bool isValid(const QString& name) const;
    /// The application setting that remembers the current workspace.
    QString rememberKey() const;

private:
    QString mDeviceName;
    QString mFolder;
    QString mPrefix;
};

} // namespace quillon
