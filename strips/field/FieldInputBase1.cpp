#include "strips/field/FieldInputBase1.h"

#include "strips/input/InputBase.h"

#include <QPainter>

using namespace Qt::StringLiterals;

FieldInputBase1::FieldInputBase1(const QString& objectName, QWidget* parent) : QWidget(parent), mRow(this)
{
    setObjectName(objectName);
    connect(&mRow, &quillon::FieldRow::additionChanged, this, &FieldInputBase1::in_mWidgetAddition_attributeChanged);
}

FieldInputBase1& FieldInputBase1::setFieldTitle(const QString& title)
{
    mRow.setTitle(title);
    return *this;
}

FieldInputBase1& FieldInputBase1::setFont(const QFont& font)
{
    mRow.setFont(font);
    return *this;
}

FieldInputBase1& FieldInputBase1::setAdditionVisible(bool visible)
{
    mRow.setAdditionVisible(visible);
    return *this;
}

FieldInputBase1& FieldInputBase1::setVisibleList(const QStringList& names)
{
    mRow.setVisibleList(names);
    return *this;
}

void FieldInputBase1::setStrips(const QList<InputBase*>& strips)
{
    QList<quillon::FieldRow::Member> members;
    for (InputBase* strip : strips) {
        strip->setCloseEnabled(false);
        connect(strip, &InputBase::attributeChanged, this, &FieldInputBase1::in_mWidgetListAll_attributeChanged);
        members.push_back({strip, strip});
    }
    mRow.setMembers(members);
}

void FieldInputBase1::in_mWidgetListAll_attributeChanged(QString objectName, QString attribute, QString value)
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

void FieldInputBase1::in_mWidgetAddition_attributeChanged(QString objectName, QString attribute, QString)
{
    if (attribute == "Visible"_L1 && mRow.setVisible(objectName, true)) {
        emit attributeChanged(objectName, u"Visible"_s, u"1"_s);
    }
}

void FieldInputBase1::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    mRow.relayout();
}

void FieldInputBase1::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    mRow.paint(painter);
}
