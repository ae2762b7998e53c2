#pragma once

#include <QAnyStringView>
#include <QSettings>
#include <QString>
#include <QVariant>

/// A widget that keeps its state in the open workspace, in a group of its own. A mix-in, GUI thread.
class WorkspaceObserver
{
public:
    /// group: the name of its group in the file, normally the object name.
    explicit WorkspaceObserver(QString group) : mGroup(std::move(group)) {}
    virtual ~WorkspaceObserver() = default;

    /// Writes one value of the group. Without an open workspace nothing happens.
    virtual void saveValue(QAnyStringView key, QVariant value);
    /// Reads one value of the group; invalid where it is missing or no workspace is open.
    virtual QVariant loadValue(QAnyStringView key);
    /// The widget reads itself and tells the device all of it.
    virtual void loadSettings() = 0;

    /// Whether there is an open workspace that this is in the audience of.
    bool hasStore() const { return store() != nullptr; }
    /// Whether the group has the key: the marker of a group is a key by the group's own name.
    bool hasValue(const QString& key) const;
    const QString& workspaceGroup() const { return mGroup; }
    void setWorkspaceGroup(const QString& group) { mGroup = group; }
    /// The subject's holder: a pointer to its pointer, so that a change of workspace needs no rebinding.
    void setSettingsHolder(QSettings** holder) { mHolder = holder; }

private:
    QSettings* store() const { return mHolder ? *mHolder : nullptr; }

    QSettings** mHolder = nullptr;
    QString mGroup;
};
