#pragma once
// The way in from the device to a strip.

#include <QStringView>
#include <QVariant>
#include <functional>

namespace quillon
{

/// Takes a value as inboundValue() makes it (int for levels, float for gains, bool for switches, QString for choices),
/// shows it, stores it and stays silent.
using DeviceSetter = std::function<void(const QVariant&)>;

/// A strip that takes reports of the device.
class StripEndpoint
{
public:
    virtual ~StripEndpoint() = default;
    /// The setter of an attribute of inboundRows() ("GAIN", "MeterLeft"); empty when the strip has none. Asked once, at
    /// construction of the page, so that a report costs one call.
    virtual DeviceSetter deviceSetter(QStringView attribute) = 0;
};

} // namespace quillon
