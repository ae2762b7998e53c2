#pragma once

#include "console/head/FieldHead.h"

/// The bar of a page with workspaces: all items. GUI thread.
class FieldHeadBase1 : public quillon::FieldHead
{
    Q_OBJECT
public:
    /// Fills the selector, which then loads current or the first workspace. Without any it makes one.
    virtual void setWorkspaces(const QStringList& names, const QString& current);
    /// The name of the selected workspace.
    const QString& workspace() const;
    /// Opens the selector's field for the name of a copy.
    void startSaveAs();

protected:
    explicit FieldHeadBase1(const QString& objectName, QWidget* parent);

    /// Asks what is to be downloaded, and raises the events that the answer stands for.
    void askDownload();
};
