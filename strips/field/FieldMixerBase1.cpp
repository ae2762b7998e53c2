#include "strips/field/FieldMixerBase1.h"

#include "strips/field/MixTab.h"
#include "strips/mixer/MixerBase.h"

FieldMixerBase1::FieldMixerBase1(const QString& objectName, QWidget* parent) : FieldBase(objectName, parent)
{
    connect(&row(), &quillon::FieldRow::titleLaidOut, this, &FieldMixerBase1::layoutTabs);
}

void FieldMixerBase1::setStrips(const QList<MixerBase*>& strips)
{
    FieldBase::setStrips(strips, true);
}

void FieldMixerBase1::setTabs(const quillon::Mixes& mixes)
{
    QWidget* before = nullptr;
    for (const quillon::Mix& mix : mixes) {
        auto* tab = new quillon::MixTab(mix.key, mix.name, mix.colour, this);
        connect(tab, &QAbstractButton::clicked, this, [this, tab] { emit mixPressed(tab->objectName()); });
        tab->show();
        mTabs += tab;
        if (before) {
            setTabOrder(before, tab);
        }
        before = tab;
    }
    layoutTabs();
}

void FieldMixerBase1::selectTab(std::size_t index)
{
    mTabs[static_cast<qsizetype>(index)]->setChecked(true);
}

void FieldMixerBase1::layoutTabs()
{
    QRect place = row().besideTitle();
    for (quillon::MixTab* tab : std::as_const(mTabs)) {
        tab->setFont(row().titleFont());
        place.setWidth(tab->widthFor(place.height()));
        tab->setGeometry(place);
        place.moveLeft(place.right() + 1);
    }
}
