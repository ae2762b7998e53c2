#pragma once

#include "app/AppSettingsSubject.h"
#include "console/head/FieldHeadBase1.h"

/// The bar of the Mobile, Live and Pro pages: it opens, makes, copies, saves and removes workspaces in the one WorkspaceSubject.
/// To the outside it tells ("WorkspaceDownload", "Clicked", "1") and ("SystemSettings", "Clicked", "1"). GUI thread.
class FieldHeadS1M1 final : public FieldHeadBase1, public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit FieldHeadS1M1(const QString& objectName, QWidget* parent = nullptr);

    /// A file that is not this device's is passed over: the first one that is takes its place, or a new one. Where none can be
    /// opened, no workspace is open afterwards.
    void setWorkspaces(const QStringList& names, const QString& current) override;

    /// "Language". A change of "AutoSaveWorkspace" shows itself in what is unsaved.
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

signals:
    /// Another workspace is open.
    void workspaceOpened(QString name);

protected:
    void in_item_attributeChanged(const QString& objectName, const QString& attribute, const QString& value) override;

private:
    bool refuseUnless(bool done);
    void open(const QString& name);

    QString mOpen; // the last one that could be opened
};
