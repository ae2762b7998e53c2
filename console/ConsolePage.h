#pragma once

#include "console/PageTable.h"

#include <QFrame>
#include <QList>
#include <QSplitter>
#include <QWidget>
#include <array>

class WorkspaceObserver;

namespace quillon
{

class FieldHead;

/// One page of the console: its bar on top, its menu at the foot, panes between splitters, the fields that stand in them, and the
/// audience of the page's workspace.
///
/// Top and Bottom take the whole width. Between them the first splitter parts the page into left and right; a second one parts the
/// lower half of the right side. A pane without a field takes no room.
class ConsolePage : public QWidget
{
public:
    enum Pane : std::uint8_t { Top, Left, Right, LowerLeft, LowerRight, Bottom, PaneCount };

    explicit ConsolePage(const PageRow& row, QWidget* parent = nullptr);

    const PageRow& row() const { return mRow; }

    /// The bar on top of the page, and the menu at its foot. Each once, of a height that is a share of the window's.
    void setHead(FieldHead* head);
    void setMenu(QWidget* menu);
    /// Puts a field into a pane, below what stands there.
    void addField(Pane pane, QWidget* field);
    /// Adds to the audience of the page's workspace: a field before its strips.
    void addObserver(WorkspaceObserver* observer) { mObservers += observer; }
    const QList<WorkspaceObserver*>& observers() const { return mObservers; }

    const QList<QSplitter*>& splitters() const { return mSplitters; }
    /// Fits bar, menu and gaps to the window: spacing, margins and splitter handles breathe with its height.
    void fit(int windowHeight);

private:
    QFrame* addPane(Pane pane, QSplitter* splitter);
    QSplitter* addSplitter(const SplitterRow& row);

    const PageRow& mRow;
    QList<WorkspaceObserver*> mObservers;
    QList<QSplitter*> mSplitters;
    std::array<QFrame*, PaneCount> mPanes{};
    FieldHead* mHead = nullptr;
    QWidget* mMenu = nullptr;
};

} // namespace quillon
