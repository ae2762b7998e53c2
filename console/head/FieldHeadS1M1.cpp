#include "console/head/FieldHeadS1M1.h"

#include "console/head/ComboBoxS1M1.h"
#include "workspace/WorkspaceChoice.h"
#include "workspace/WorkspaceSubject.h"

#include <QSettings>

using namespace Qt::StringLiterals;

FieldHeadS1M1::FieldHeadS1M1(const QString& objectName, QWidget* parent) : FieldHeadBase1(objectName, parent)
{
    const WorkspaceSubject& subject = WorkspaceSubject::instance();
    const auto showSaved = [this, &subject] { setSaved(!subject.hasUnsavedChanges()); };
    connect(&subject, &WorkspaceSubject::unsavedChanged, this, showSaved);
    showSaved();
}

void FieldHeadS1M1::setWorkspaces(const QStringList& names, const QString& current)
{
    WorkspaceSubject& subject = WorkspaceSubject::instance();
    mOpen.clear();
    const QString chosen = quillon::workspaceToOpen(subject, names, current);
    if (names.isEmpty() || !chosen.isEmpty()) {
        FieldHeadBase1::setWorkspaces(names, chosen);
    } else {
        const QString fresh = quillon::uniqueName(QString(), names);
        subject.createWorkspace(fresh);
        FieldHeadBase1::setWorkspaces(names + QStringList{fresh}, fresh);
    }
    // A page that could not open its own must not go on in the workspace of the page before: their groups have the same names.
    if (mOpen.isEmpty()) {
        subject.close();
        selector()->showNone();
    }
}

void FieldHeadS1M1::onAppSettingsChanged(QString, QString attribute, QString value)
{
    if (attribute == "Language"_L1) {
        setLanguage(value);
    }
}

bool FieldHeadS1M1::refuseUnless(bool done)
{
    if (!done) {
        selector()->refuseEvent();
    }
    return done;
}

/// What cannot be opened is not shown as open: the changes would go elsewhere.
void FieldHeadS1M1::open(const QString& name)
{
    WorkspaceSubject& subject = WorkspaceSubject::instance();
    subject.modifyWorkspace(name, quillon::workspaceMode());
    if (subject.isCurrent(name)) {
        mOpen = name;
        emit workspaceOpened(name);
        return;
    }
    if (!subject.workspaceNames().contains(name)) {
        selector()->forgetName(name);
    }
    if (!subject.isOpen()) { // so that each of them can be chosen again
        mOpen.clear();
        selector()->showNone();
        emit workspaceOpened({});
    } else if (!mOpen.isEmpty()) {
        selector()->showName(mOpen);
        QSettings().setValue(subject.rememberKey(), mOpen); // the next start opens what is open now
    }
}

void FieldHeadS1M1::in_item_attributeChanged(const QString& objectName, const QString& attribute, const QString& value)
{
    WorkspaceSubject& subject = WorkspaceSubject::instance();
    if (setStream(objectName, value)) {
        return;
    }
    if (objectName == "SystemSettings"_L1) {
        emit attributeChanged(objectName, attribute, value);
    } else if (objectName == "WorkspaceDownload"_L1) {
        askDownload();
    } else if (objectName == "WorkspaceSave"_L1) {
        subject.saveWorkspace();
    } else if (attribute == "ItemChanged"_L1) {
        open(value);
    } else if (attribute == "RemoveItem"_L1) {
        subject.removeWorkspace(value);
    } else if (attribute == "NewItem"_L1) {
        refuseUnless(subject.createWorkspace(value));
    } else if (attribute == "ItemSaveAs"_L1) {
        refuseUnless(subject.workspaceSaveAs(value));
    } else if (attribute == "RestoreDefault"_L1) {
        // Another one than the open one is made anew: what is open keeps its content.
        if (subject.isCurrent(value)) {
            subject.clearWorkspace();
        } else if (!refuseUnless(subject.createWorkspace(value))) {
            return;
        }
        open(value);
    }
}
