#include "strips/field/FieldBase.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillon
{

FieldBase::FieldBase(const QString& objectName, QWidget* parent, Qt::Orientation orientation)
    : QWidget(parent), mRow(this, orientation)
{
    setObjectName(objectName);
    connect(&mRow, &FieldRow::additionChanged, this, &FieldBase::in_mWidgetAddition_attributeChanged);
}

FieldBase& FieldBase::setFieldTitle(const QString& title)
{
    mRow.setTitle(title);
    return *this;
}

FieldBase& FieldBase::setFont(const QFont& font)
{
    mRow.setFont(font);
    return *this;
}

FieldBase& FieldBase::setAdditionVisible(bool visible)
{
    mRow.setAdditionVisible(visible);
    return *this;
}

FieldBase& FieldBase::setVisibleList(const QStringList& names)
{
    mRow.setVisibleList(names);
    return *this;
}

void FieldBase::in_mWidgetListAll_attributeChanged(QString objectName, QString attribute, QString value)
{
    if (attribute == "Hide"_L1) {
        if (mRow.setVisible(objectName, false)) {
            emit attributeChanged(objectName, u"Visible"_s, u"0"_s);
        }
    } else if (attribute == "Resize"_L1) {
        mRow.relayout();
    } else {
        emit attributeChanged(objectName, attribute, value);
    }
}

void FieldBase::in_mWidgetAddition_attributeChanged(QString objectName, QString attribute, QString)
{
    if (attribute == "Visible"_L1 && mRow.setVisible(objectName, true)) {
        emit attributeChanged(objectName, u"Visible"_s, u"1"_s);
    }
}

void FieldBase::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    mRow.relayout();
}

void FieldBase::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    mRow.limitSize();
}

void FieldBase::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    mRow.paint(painter);
}

} // namespace quillon
