#pragma once

#include "strips/field/FieldBase.h"
#include "strips/mixer/Mix.h"

class MixerBase;

namespace quillon
{
class MixTab;
}

/// A row of mixer strips with the names of the mixes beside its title. GUI thread.
class FieldMixerBase1 : public quillon::FieldBase
{
    Q_OBJECT
protected:
    explicit FieldMixerBase1(const QString& objectName, QWidget* parent);

    void setStrips(const QList<MixerBase*>& strips);
    void setTabs(const quillon::Mixes& mixes);
    /// Shows a mix as the selected one, silently.
    void selectTab(std::size_t index);

signals:
    /// A mix was pressed.
    void mixPressed(QString key);

private:
    void layoutTabs();

    QList<quillon::MixTab*> mTabs;
};
