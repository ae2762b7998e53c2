#include "console/ConsolePage.h"

#include "console/head/FieldHead.h"

#include <QVBoxLayout>

namespace quillon
{

namespace
{

constexpr double kGapShare = 0.0047;
constexpr double kMenuShare = 0.052;

} // namespace

ConsolePage::ConsolePage(const PageRow& row, QWidget* parent) : QWidget(parent), mRow(row)
{
    setObjectName(QLatin1StringView(row.object));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(addPane(Top, nullptr), 1);
    for (const SplitterRow& splitterRow : row.splitters) {
        if (splitterRow.object == nullptr) {
            continue;
        }
        QSplitter* splitter = addSplitter(splitterRow);
        const bool first = mSplitters.isEmpty();
        mSplitters += splitter;
        if (first) {
            layout->addWidget(splitter, 1);
            addPane(Left, splitter);
            addPane(Right, splitter);
        } else {
            addPane(LowerLeft, splitter);
            addPane(LowerRight, splitter);
        }
    }
    layout->addWidget(addPane(Bottom, nullptr), 1);
}

QSplitter* ConsolePage::addSplitter(const SplitterRow& row)
{
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QLatin1StringView(row.object));
    splitter->setChildrenCollapsible(false);
    splitter->hide();
    return splitter;
}

QFrame* ConsolePage::addPane(Pane pane, QSplitter* splitter)
{
    auto* frame = new QFrame(this);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    if (splitter) {
        splitter->addWidget(frame);
    }
    frame->hide();
    mPanes[pane] = frame;
    return frame;
}

void ConsolePage::setHead(FieldHead* head)
{
    mHead = head;
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, head);
}

void ConsolePage::setMenu(QWidget* menu)
{
    mMenu = menu;
    static_cast<QVBoxLayout*>(layout())->addWidget(menu);
}

void ConsolePage::addField(Pane pane, QWidget* field)
{
    const bool lower = pane == LowerLeft || pane == LowerRight;
    if (lower && mSplitters[1]->isHidden()) {
        static_cast<QVBoxLayout*>(mPanes[Right]->layout())->addWidget(mSplitters[1], 1); // below what stands there by now
        mSplitters[1]->show();
        mPanes[Right]->show();
    }
    static_cast<QVBoxLayout*>(mPanes[pane]->layout())->addWidget(field, 1);
    mPanes[pane]->show();
    if (pane != Top && pane != Bottom) {
        mSplitters[0]->show();
    }
}

void ConsolePage::fit(int windowHeight)
{
    const int gap = static_cast<int>(windowHeight * kGapShare);
    layout()->setSpacing(gap);
    for (QFrame* pane : mPanes) {
        if (pane) {
            pane->layout()->setSpacing(gap);
        }
    }
    for (QSplitter* splitter : std::as_const(mSplitters)) {
        splitter->setHandleWidth(gap);
    }
    if (mHead) {
        mHead->fit(windowHeight);
    }
    if (mMenu) {
        mMenu->setFixedHeight(static_cast<int>(windowHeight * kMenuShare));
    }
}

} // namespace quillon
