#pragma once

#include <QColor>
#include <QWidget>

class QAction;
class QMenu;

namespace quillon
{
class FlatToolButton;
}

/// A button that shows the current item of a menu of sections, and opens it. Its accessible name is what assistive technology
/// calls the button; without one, the name of the widget around it. GUI thread.
class ToolButtonS1M1 : public QWidget
{
    Q_OBJECT
public:
    explicit ToolButtonS1M1(QWidget* parent = nullptr);

    /// Adds a section, by the texts from the outermost one inwards with a '/' between. What is there already stays.
    void addMenu(const QString& path);
    /// Adds an item to the section of that text, wherever it is; a section that is missing is added. Items given twice count once.
    void addItem(const QString& menuName, const QString& text);
    /// Removes all sections and items; the current item stays.
    void clear();
    /// Shows the item and checks it in the menu. A text that is in no menu is shown all the same. Emits nothing.
    void setCurrentItem(const QString& text);
    const QString& currentItem() const { return mCurrentItem; }
    void setFont(const QFont& font);
    void setTextColour(const QColor& colour);

signals:
    /// The user has chosen another item: the name of this widget, "ItemChanged", the text.
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private slots:
    void in_mMenu_triggered(QAction* action);

private:
    QMenu* section(QMenu* parent, const QString& text);
    void refit();
    void dressMenu();

    QMenu* mMenu;
    quillon::FlatToolButton* mToolButton;
    QFont mFont;
    QString mCurrentItem;
    int mSheetPixels = 0;
};
