#pragma once

#include "app/AppSettingsSubject.h"
#include "console/settings/ScrollArea.h"
#include "controls/FramelessWindow.h"

#include <QMap>
#include <QStringList>

class QStackedWidget;

namespace quillon
{
class SettingsTab;
}

/// The settings dialog: tabs at the left, the page of the chosen one beside them. It blocks nothing else. It and its pages follow
/// language and scale each for itself, as members of the settings' audience. GUI thread.
class TabWidgetS1M1 final : public FramelessWindow, public AppSettingsObserver
{
    Q_OBJECT
public:
    explicit TabWidgetS1M1(QWidget* parent = nullptr);

    /// The texts of the tabs from the top, by language. The English ones are also the keys of the pages. Before addPage.
    void setTabNames(const QMap<QString, QStringList>& names);
    /// Puts a page behind its tab and takes it over. False, with a line in the log, for a key that has no tab or has a page.
    template<class Page> bool addPage(const QString& key, Page* page) { return addScrolled(key, new ScrollArea<Page>(page)); }
    /// Chooses a tab by its key; a tab without a page is passed over.
    void setCurrentTab(const QString& key);

    /// Size of the window: a factor of its base size, at most the screen. Ignored unless above 0.
    void setScaleFactor(double factor);
    /// Shows it over the middle of window, or brings it to the front.
    void showOver(const QWidget* window);

    /// "Language", "ScaleFactor"; the pages are told by the settings themselves.
    void onAppSettingsChanged(QString objectName, QString attribute, QString value) override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    bool addScrolled(const QString& key, QScrollArea* area);
    void relabel();
    void layoutTabs();

    QMap<QString, QStringList> mNames;
    QString mLanguage;
    QWidget* mColumn;
    QStackedWidget* mStack;
    QList<quillon::SettingsTab*> mTabs;
    QList<QScrollArea*> mPages; // by tab, null where there is none yet
    double mScale = 1;
};
