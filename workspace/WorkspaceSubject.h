#pragma once

#include "workspace/WorkspaceFolder.h"
#include "workspace/WorkspaceObserver.h"

#include <QList>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <memory>

namespace quillon
{
class WorkspaceSettings;
}

/// The one open workspace of the process: its file, its audience, its two write modes. GUI thread.
///
/// Mode 0 writes into the workspace file itself; mode 1 into a private copy, which only saveWorkspace() brings back.
/// Failures are one warning in the log and leave everything as it was, but for a private copy that cannot be made when a workspace
/// becomes current: no workspace is open then, and the observers' values go nowhere until another one is opened.
/// A name that would leave its folder is refused by every operation.
class WorkspaceSubject : public QObject
{
    Q_OBJECT
public:
    static WorkspaceSubject& instance();
    ~WorkspaceSubject() override;

    void addObserver(WorkspaceObserver* observer);
    void addObservers(const QList<WorkspaceObserver*>& observers);
    void clearObservers();
    /// What the files of the current work mode are: their model, folder and name prefix. Creates the folder; where
    /// that fails, one in the system's folder for temporary files takes its place.
    void setWorkspaceInfo(const QString& deviceName, const QString& folder, const QString& prefix);

    /// False when it failed.
    bool createWorkspace(const QString& name);
    bool createFile(const QString& path, const QString& deviceName);
    void removeWorkspace(const QString& name);
    void removeFile(const QString& path);
    /// False when there is no copy: what is open has its changes still.
    bool workspaceSaveAs(const QString& name);
    bool fileSaveAs(const QString& path);
    /// Makes a workspace current, remembers its name and loads every observer between two "LoadSettings" events.
    void modifyWorkspace(const QString& name, int mode);
    void modifyFile(const QString& path, int mode);
    void modifyWorkspacePreprocessing(int mode);
    void modifyFilePreprocessing(int mode);
    void saveWorkspace();
    void saveFile();
    void clearWorkspace();
    void clearFile();
    /// Names of the work mode's workspaces, oldest first.
    QStringList workspaceNames() const { return mPlace.names(); }
    bool isWorkspaceValid(const QString& name) const;

    /// The application setting that remembers the current workspace of the work mode.
    QString rememberKey() const { return mPlace.rememberKey(); }
    bool isOpen() const { return mSettings != nullptr; }
    /// The write mode of the open workspace.
    int mode() const { return mMode; }
    /// Whether the private copy of mode 1 has changes that saveWorkspace() would bring into the file, or changes of either mode
    /// could not be written. What a workspace is given while it is loaded is none.
    bool hasUnsavedChanges() const;
    /// The file of the open workspace, also while a private copy is written to; empty while none is open.
    QString filePath() const { return isOpen() ? mFilePath : QString(); }
    /// Whether the open workspace is this one of the present work mode.
    bool isCurrent(const QString& name) const;
    /// Closes the open workspace: mode 0 writes what is pending, mode 1 drops its private copy. Runs by itself when the
    /// application object goes, while files can still be written.
    void close();

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);
    /// hasUnsavedChanges() may say something else now.
    void unsavedChanged();

private:
    WorkspaceSubject() = default;

    bool hasInfo(const char* operation) const;
    bool isNamed(const QString& name, const char* operation) const;
    bool isOpenFile(const QString& path) const;
    bool repair(const QString& path);
    bool copyToTemp(const QString& path);
    void open(const QString& workPath);
    quillon::WorkspaceSettings* store() const;
    std::unique_ptr<quillon::WorkspaceSettings> leaveStore();
    bool flush();
    void loadObservers();
    void countAsSaved();

    QSettings* mSettings = nullptr; // always a quillon::WorkspaceSettings; the observers hold the address of this pointer
    QList<WorkspaceObserver*> mObservers;
    QString mFilePath;
    QString mWorkPath;
    quillon::WorkspaceFolder mPlace;
    qint32 mMode = 0;
};
