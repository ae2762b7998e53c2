#pragma once

#include <QColor>
#include <QHash>
#include <QList>
#include <QWidget>

class QButtonGroup;
class QLabel;
class QMenu;
class QToolButton;

namespace quillon
{
class FlatToolButton;
}

/// A titled box of buttons, each of which opens a menu. GUI thread.
class MenuS1M1 : public QWidget
{
    Q_OBJECT
public:
    /// An item or one of its sub-items.
    struct Record {
        QString text;
        QString name;     // of an item its object name, of a sub-item its value
        bool flag = true; // of an item whether it can be checked, of a sub-item whether it is enabled
    };

    explicit MenuS1M1(QWidget* parent = nullptr, const QString& title = QString());

    /// Adds a button and its menu. A name that is there already gets the new text, flag and menu.
    void addItem(const Record& item, const QList<Record>& subItems);
    /// The button of that name, or null.
    QToolButton* item(const QString& name) const;

    void setTitle(const QString& title);
    void setFont(const QFont& font);
    /// Shares of title and items in the height, in percent. Items that would be below their least height take from the title.
    void setHeightPercents(int title, int items);
    /// 1 opens menus from the left of the button, all else from its right.
    void setAlignment(int alignment) { mAlignment = alignment; }
    /// Letters of the menus, of those that would fill the height of the box.
    void setItemTextRatio(double ratio) { mItemTextRatio = ratio; }
    void setItemColors(const QColor& text, const QColor& background);
    void setMenuColors(const QColor& titleText, const QColor& background);

signals:
    /// The user has chosen: the name of this widget, that of the button, and the value of the sub-item.
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QMenu* makeMenu(const Record& item, const QList<Record>& subItems);
    void open(quillon::FlatToolButton* button);
    void relayout();

    QLabel* mTitle;
    QButtonGroup* mGroup;
    QList<quillon::FlatToolButton*> mItems;
    QList<QRect> mSeparators; // one between each two items
    QHash<QString, quillon::FlatToolButton*> mByName;
    int mItemPercent = 25;
    int mTitlePercent = 75;
    int mAlignment = 0;
    double mItemTextRatio = 0.6;
    double mRadius = 0;
    QColor mItemBackground{45, 45, 45};
    QColor mItemText{161, 161, 161};
    QColor mMenuBackground{22, 22, 22};
    QColor mTitleText{161, 161, 161};
};
