#pragma once

#include "console/head/ComboBoxS1M1_ItemS1M1.h"

#include <QListWidget>
#include <QPointer>

namespace quillon
{

/// The list of the selector: names with their rows, a line, and the commands. GUI thread.
class NameList : public QListWidget
{
    Q_OBJECT
public:
    /// The commands, counted from the first row behind the names, where the line is.
    enum Command { RestoreDefault = 1, NewWorkspace = 2, SaveAs = 3 };

    explicit NameList(QWidget* parent);

    int nameCount() const;
    QStringList names() const;
    /// Row of a name, -1 when it is not there.
    int rowOf(const QString& name) const { return int(names().indexOf(name)); }
    void setNames(const QStringList& names);
    void addName(const QString& name);
    void removeName(const QString& name);

    void setLanguage(const QString& language);
    /// To be called before the list is shown: makes the rows, marks the open workspace, and is as wide as what it shows.
    void prepare(const QString& current, int leastWidth);
    /// Lights the row that the list stands on.
    void light();

signals:
    void deleteRequested(QString name);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    ComboBoxS1M1_ItemS1M1* rowWidget(int row) const;
    ComboBoxS1M1_ItemS1M1* makeRow(int row);

    QString mLanguage;
    QPointer<ComboBoxS1M1_ItemS1M1> mLit;
};

/// Style of its scroll bar and of the tips over it.
QString nameListSheet();

/// The ground of all rows, the line, and the texts of the commands; names draw themselves.
QAbstractItemDelegate* newNameDelegate(QObject* parent);

} // namespace quillon
