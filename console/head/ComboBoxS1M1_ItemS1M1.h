#pragma once

#include <QWidget>

class QPushButton;

/// A row in the list of workspaces: the name, and the button that deletes it. The rest of the mouse is the list's. GUI thread.
class ComboBoxS1M1_ItemS1M1 : public QWidget
{
    Q_OBJECT
public:
    explicit ComboBoxS1M1_ItemS1M1(const QString& name, QWidget* parent = nullptr);

    const QString& name() const { return mName; }
    /// The workspace that is open: a lamp before its name.
    void setCurrent(bool current);
    /// The row that the list stands on.
    void setLit(bool lit);
    void setLanguage(const QString& language);
    /// Brings the keyboard to the delete button; Left, Up and Down lead back to the list.
    void focusDelete();

    /// Where a text starts in a row of that height.
    static int textLeft(int rowHeight) { return rowHeight / 2; }

signals:
    void deleteClicked(QString name);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    const QString mName;
    QPushButton* mDelete;
    bool mCurrent = false;
    bool mLit = false;
};
