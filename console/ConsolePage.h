#pragma once

#include "console/PageTable.h"

#include <QFrame>
#include <QList>
#include <QSplitter>
#include <QWidget>
#include <array>

class AppSettingsObserver;
class WorkspaceObserver;

namespace quillon
{

/// One page of the console: panes between splitters, the fields that stand in them, and the audience of the page's workspace.
///
/// The first splitter parts the page into left and right; a second one parts the lower half of the right side.
/// A pane without a field takes no room.
class ConsolePage : public QWidget
{
public:
    enum Pane : int { Left = 0, Right = 1, LowerLeft = 2, LowerRight = 3 };

    explicit ConsolePage(const PageRow& row, QWidget* parent = nullptr);

    const PageRow& row() const { return mRow; }

    /// Puts a field into a pane, below what stands there.
    void addField(Pane pane, QWidget* field);
    /// Adds to the audience of the page's workspace: a field before its strips.
    void addObserver(WorkspaceObserver* observer) { mObservers += observer; }
    const QList<WorkspaceObserver*>& observers() const { return mObservers; }

    const QList<QSplitter*>& splitters() const { return mSplitters; }
    /// The gap between fields, in pixels: spacing, margins and splitter handles breathe with the window's height.
    void setGap(int pixels);

private:
    QFrame* addPane(QSplitter& splitter);

    const PageRow& mRow;
    QList<WorkspaceObserver*> mObservers;
    QList<QSplitter*> mSplitters;
    QList<QFrame*> mPanes;
};

} // namespace quillon
