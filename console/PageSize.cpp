#include "console/PageSize.h"

#include "console/PageTable.h"

#include <QMainWindow>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>

namespace quillon
{

namespace
{

void restoreSplitters(const PageRow& page, const QList<QSplitter*>& splitters)
{
    QSettings settings;
    for (QSplitter* splitter : splitters) {
        const SplitterRow* row = splitterRow(page, splitter->objectName());
        if (row == nullptr) {
            continue;
        }
        if (!settings.contains(row->key)) {
            splitter->setSizes({row->first, row->second});
            settings.setValue(row->key, splitter->saveState());
        }
        const int gap = splitter->handleWidth(); // the window's, not that of the time when the state was saved
        splitter->restoreState(settings.value(row->key).toByteArray());
        splitter->setHandleWidth(gap);
    }
}

} // namespace

void applyPageSize(QMainWindow& window, const PageRow& page, const QList<QSplitter*>& splitters, float scale, SizeMemory memory)
{
    const int height = static_cast<int>(scale * kPageHeight);
    const float defaultWidth = scale * static_cast<float>(page.minimumWidth);
    int width = static_cast<int>(defaultWidth);
    if (memory == SizeMemory::Own) {
        QSettings settings;
        if (!settings.contains(page.widthKey)) {
            settings.setValue(page.widthKey, defaultWidth);
        }
        width = settings.value(page.widthKey).toInt();
    }

    window.statusBar()->show();
    // The recovery page fixes both dimensions; a page frees the width again.
    window.setMaximumWidth(QWIDGETSIZE_MAX);
    window.setFixedHeight(height);
    window.setMinimumWidth(static_cast<int>(defaultWidth));
    if (memory == SizeMemory::Own) {
        restoreSplitters(page, splitters);
    }
    window.resize(width, height);
}

void keepPageWidth(const PageRow& page, int width)
{
    if (QSettings settings;
        page.widthKey != nullptr && settings.contains(page.widthKey) && settings.value(page.widthKey).toInt() != width) {
        settings.setValue(page.widthKey, width);
    }
}

void keepSplitters(const PageRow& page, const QList<QSplitter*>& splitters)
{
    QSettings settings;
    for (const QSplitter* splitter : splitters) {
        if (const SplitterRow* row = splitterRow(page, splitter->objectName())) {
            settings.setValue(row->key, splitter->saveState());
        }
    }
}

void dropPageSizes()
{
    QSettings settings;
    for (const PageRow& page : pageRows()) {
        if (page.widthKey != nullptr) {
            settings.remove(page.widthKey);
        }
        for (const SplitterRow& splitter : page.splitters) {
            if (splitter.key != nullptr) {
                settings.remove(splitter.key);
            }
        }
    }
}

} // namespace quillon
