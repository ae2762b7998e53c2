#pragma once

#include <QList>
#include <QTimer>
#include <QWidget>

class QFrame;
class QPushButton;

/// The box at the end of a field that brings hidden strips back.
///
/// Closed it is one "+". Pressing that opens it: a list of the names that can be added takes the place of the "+". The list
/// closes 1000 ms after the pointer or the keyboard has left it, on Escape, and when nothing is left to add. GUI thread.
class ButtonBoxS1M1 : public QWidget
{
    Q_OBJECT
public:
    explicit ButtonBoxS1M1(QWidget* parent = nullptr);

    /// All names the box knows, each of them to add, in the order in which they are listed. Names given twice count once.
    void setNames(const QStringList& all);
    /// The name can be added (its strip was hidden). It takes its place in the order; an unknown name goes to the end.
    void addName(const QString& name);
    /// The name can no longer be added (its strip was shown). Unknown names are ignored.
    void removeName(const QString& name);
    /// Names that can be added, in order.
    QStringList names() const;
    /// True when there is nothing to add: the field then keeps the box out of sight.
    bool isEmpty() const { return mAddable == 0; }
    bool isOpened() const { return mOpened; }

    void setFont(const QFont& font);
    /// "English" or "Chinese"; others are ignored.
    void setLanguage(const QString& language);

signals:
    /// name, "Visible", "1": the user wants the strip of that name back. The name has left the list by then.
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void in_mTimer_timeout();
    void in_mButtonAddition_clicked();
    void in_mButtonListAll_clicked();

private:
    class AddButton;
    struct Item {
        QString name;
        QPushButton* button = nullptr;
        bool addable = true;
    };

    Item* find(const QString& name);
    Item& append(const QString& name);
    void setAddable(Item& item, bool addable);
    void setOpened(bool opened);
    void focusNear(qsizetype index);
    void refresh();
    void layoutButtons();
    void restyle(int radius);

    bool mOpened = false; // first: event() runs as soon as the first child is made
    QFrame* mFrame = nullptr;
    AddButton* mButtonAddition = nullptr;
    QList<Item> mItems;
    QTimer mTimer;
    QString mLanguage;
    QFont mFont;
    int mAddable = 0;
    int mRadius = -1;
};
