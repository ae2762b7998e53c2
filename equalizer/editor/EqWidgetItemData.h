#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

/// One band as it passes between a column of the band editor, the curves and, field by field, the device.
struct EqWidgetItemData {
    /// Bits of changed, in the order in which they are reported.
    enum Change : quint8 { Type = 1, Gain = 2, Freq = 4, Q = 8, Switch = 16 };

    qint32 index = 0;                   // position from 0
    QString type = QStringLiteral("0"); // decimal: 0 peaking, 1 lowpass, 2 highpass, 3 lowshelf, 4 highshelf
    float gain = 0.0F;                  // dB
    float frequency = 1000.0F;          // Hz
    float q = 0.7F;
    bool enabled = true;
    quint8 changed = 0; // what a report changes; 0 outside one

    bool operator==(const EqWidgetItemData&) const = default;
};
Q_DECLARE_METATYPE(EqWidgetItemData)

namespace quillon
{

/// A field of a band under the name and in the words that the device's table knows.
struct BandAttribute {
    QString name;
    QString value;
    bool operator==(const BandAttribute&) const = default;
};

/// The fields whose bit is set in changed, in the order of the bits: "Type", "Gain", "Freq", "Q", "Switch".
QList<BandAttribute> changedAttributes(const EqWidgetItemData& data);

} // namespace quillon
