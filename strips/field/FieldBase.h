#pragma once

#include "strips/field/FieldRow.h"

#include <QWidget>

namespace quillon
{

/// A titled row of strips of one family: layout, hiding and adding. What it keeps, and how it is called, is its member's business.
/// GUI thread.
class FieldBase : public QWidget
{
    Q_OBJECT
public:
    FieldBase& setFieldTitle(const QString& title);
    FieldBase& setFont(const QFont& font);
    FieldBase& setAdditionVisible(bool visible);
    /// Shows and enables the strips of these channel names; the others are hidden and disabled.
    FieldBase& setVisibleList(const QStringList& names);
    QStringList visibleList() const { return mRow.visibleList(); }

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    FieldBase(const QString& objectName, QWidget* parent, Qt::Orientation orientation = Qt::Horizontal);

    /// Takes the strips in, hidden, and passes their events on. closable: the user may hide them.
    template<class Strip> void setStrips(const QList<Strip*>& strips, bool closable);
    QStringList allNames() const { return mRow.allNames(); }
    void setAdditionLanguage(const QString& language) { mRow.setLanguage(language); }
    FieldRow& row() { return mRow; }

    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

protected slots:
    void in_mWidgetListAll_attributeChanged(QString objectName, QString attribute, QString value);
    void in_mWidgetAddition_attributeChanged(QString objectName, QString attribute, QString value);

private:
    FieldRow mRow;
};

template<class Strip> void FieldBase::setStrips(const QList<Strip*>& strips, bool closable)
{
    QList<FieldRow::Member> members;
    for (Strip* strip : strips) {
        strip->setCloseEnabled(closable);
        connect(strip, &Strip::attributeChanged, this, &FieldBase::in_mWidgetListAll_attributeChanged);
        members.push_back({strip, strip});
    }
    mRow.setMembers(members);
}

} // namespace quillon
