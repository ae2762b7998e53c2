#pragma once

#include "strips/field/FieldRow.h"

#include <QWidget>

class InputBase;

/// A row of input strips: layout, hiding and adding. What it keeps, and how it is called, is its member's business. GUI thread.
class FieldInputBase1 : public QWidget
{
    Q_OBJECT
public:
    FieldInputBase1& setFieldTitle(const QString& title);
    FieldInputBase1& setFont(const QFont& font);
    FieldInputBase1& setAdditionVisible(bool visible);
    /// Shows and enables the strips of these channel names; the others are hidden and disabled.
    FieldInputBase1& setVisibleList(const QStringList& names);
    QStringList visibleList() const { return mRow.visibleList(); }

signals:
    void attributeChanged(QString objectName, QString attribute, QString value);

protected:
    explicit FieldInputBase1(const QString& objectName, QWidget* parent);

    /// Takes the strips in, hidden, and passes their events on.
    void setStrips(const QList<InputBase*>& strips);
    QStringList allNames() const { return mRow.allNames(); }
    void setAdditionLanguage(const QString& language) { mRow.setLanguage(language); }

    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

protected slots:
    void in_mWidgetListAll_attributeChanged(QString objectName, QString attribute, QString value);
    void in_mWidgetAddition_attributeChanged(QString objectName, QString attribute, QString value);

private:
    quillon::FieldRow mRow;
};
