#include "console/ConsolePage.h"

#include <QVBoxLayout>

namespace quillon
{

ConsolePage::ConsolePage(const PageRow& row, QWidget* parent) : QWidget(parent), mRow(row)
{
    setObjectName(QLatin1StringView(row.object));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const SplitterRow& splitterRow : row.splitters) {
        if (splitterRow.object == nullptr) {
            continue;
        }
        auto* splitter = new QSplitter(Qt::Horizontal, this);
        splitter->setObjectName(QLatin1StringView(splitterRow.object));
        splitter->setChildrenCollapsible(false);
        if (mSplitters.isEmpty()) {
            layout->addWidget(splitter);
        } else {
            mPanes[Right]->layout()->addWidget(splitter);
            splitter->hide();
        }
        mSplitters += splitter;
        addPane(*splitter);
        addPane(*splitter);
    }
}

QFrame* ConsolePage::addPane(QSplitter& splitter)
{
    auto* pane = new QFrame(&splitter);
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    splitter.addWidget(pane);
    pane->hide();
    mPanes += pane;
    return pane;
}

void ConsolePage::addField(Pane pane, QWidget* field)
{
    mPanes[pane]->layout()->addWidget(field);
    mPanes[pane]->show();
    if (pane == LowerLeft || pane == LowerRight) {
        mSplitters[1]->show();
        mPanes[Right]->show();
    }
}

void ConsolePage::setGap(int pixels)
{
    layout()->setSpacing(pixels);
    for (QFrame* pane : mPanes) {
        pane->layout()->setSpacing(pixels);
    }
    for (QSplitter* splitter : mSplitters) {
        splitter->setHandleWidth(pixels);
    }
}

} // namespace quillon
