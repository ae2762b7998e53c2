#pragma once

#include "gallery/GalleryPage.h"

#include <QElapsedTimer>
#include <QTimer>

class ComboBoxS1M2;
class QTabWidget;

namespace quillon::gallery
{

class SignalLog;

/// Every control of the program in every state: a page for each family, in either language, in three sizes. GUI thread.
class GalleryWindow : public QWidget
{
    Q_OBJECT
public:
    explicit GalleryWindow(const Setting& setting, QWidget* parent = nullptr);

    /// Prints the name of each control and, from here on, each signal of each.
    void setLogging();
    /// The page of a family by its place; places that are none are ignored.
    void setPage(int index);
    GalleryPage* page(int index) const { return mPages.value(index); }

private slots:
    void in_mTimer_timeout();

private:
    void buildHead();
    void buildPages();

    Setting mSetting;
    QTabWidget* mTabs;
    ComboBoxS1M2* mLanguage;
    ComboBoxS1M2* mScale;
    QList<GalleryPage*> mPages;
    SignalLog* mLog = nullptr;
    QTimer mTimer;
    QElapsedTimer mClock;
};

/// The colours behind the controls, as a palette.
QPalette galleryPalette();

} // namespace quillon::gallery
