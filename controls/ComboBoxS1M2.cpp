#include "controls/ComboBoxS1M2.h"

#include <QAbstractItemView>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

ComboBoxS1M2::ComboBoxS1M2(QWidget* parent) : QComboBox(parent), mCore(this, quillon::kCapsuleCombo)
{
    connect(this, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        if (mItemsReady)
            emit attributeChanged(objectName(), u"ItemChanged"_s, text);
    });
}

void ComboBoxS1M2::setItems(const QStringList& list, const QString& current)
{
    mItemsReady = false;
    clear();
    for (const QString& item : list)
        addItem(item, item);
    setCurrentIndex(findData(current, Qt::UserRole, Qt::MatchFixedString));
    mItemsReady = !list.isEmpty();
    mCore.relayout();
}

bool ComboBoxS1M2::event(QEvent* event)
{
    mCore.watch(event);
    return QComboBox::event(event);
}

void ComboBoxS1M2::resizeEvent(QResizeEvent* event)
{
    QComboBox::resizeEvent(event);
    mCore.relayout();
}

void ComboBoxS1M2::wheelEvent(QWheelEvent* event)
{
    event->setAccepted(mCore.wheel(event));
}
