#pragma once

#include "strips/FieldMember.h"
#include "strips/field/FieldGeometry.h"

#include <QFont>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QWidget>

class ButtonBoxS1M1;
class QLabel;
class QScrollArea;
class QScrollBar;

namespace quillon
{

/// What every field does with its row of strips: title, order, visibility, layout, scrolling, and the box that brings hidden strips
/// back. Held by the field, which forwards its events and owns the store. Strips belong to whoever made them. GUI thread.
class FieldRow : public QObject
{
    Q_OBJECT
public:
    struct Member {
        QWidget* widget;
        FieldMember* strip;
    };

    /// A vertical one is a column without a title.
    FieldRow(QWidget* field, Qt::Orientation orientation);

    /// Takes the strips in, hidden and disabled, in the order of the row. Once.
    void setMembers(const QList<Member>& members);
    void setTitle(const QString& title);
    void setFont(const QFont& font);
    void setLanguage(const QString& language);
    void setAdditionVisible(bool visible);

    /// Shows and enables the strips of these names, hides and disables the others. Unknown names are skipped.
    void setVisibleList(const QStringList& names);
    /// Names of the visible strips, in the order of the row.
    QStringList visibleList() const;
    QStringList allNames() const;
    /// Shows or hides the first strip of that name. False where there is none or nothing changes.
    bool setVisible(const QString& name, bool visible);

    /// Redoes the layout for the field's present size.
    void relayout();
    /// Sets the least size of the field, which shows two strips. Call when it is shown: before that it has no height to speak of.
    void limitSize();
    void paint(QPainter& painter) const;
    /// The free part of the title row, behind the title, and the title's font.
    QRect besideTitle() const;
    QFont titleFont() const;

signals:
    /// The title stands in another place or has another length.
    void titleLaidOut();
    /// The user asked the box for a strip: name, "Visible", "1".
    void additionChanged(QString objectName, QString attribute, QString value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void in_mScrollArea_valueChanged(int value);

private:
    struct Record {
        bool visible;
        Member member;
    };

    bool isColumn() const { return mOrientation == Qt::Vertical; }
    QScrollBar* bar() const;
    void apply(Record& record, bool visible);
    void layoutTitle();
    int layoutStrips();
    void restyleBar(bool scrollable);

    QWidget* mField;
    QLabel* mLabel;
    QScrollArea* mScrollArea;
    QWidget* mWidget; // contents of the scroll area
    ButtonBoxS1M1* mAddition;
    QList<Record> mWidgetList;
    FieldGeometry mGeometry;
    QFont mFont;
    QString mBarStyle;
    const Qt::Orientation mOrientation;
    const float mTitleRatio;
    int mContentLength = 0;
    int mScrollValue = 0;
    bool mAdditionVisible = true;
};

} // namespace quillon
