#include "strips/ControlPorts.h"

namespace quillon
{

DeviceSetter MeterPort::setter(QStringView attribute) const
{
    const Feed* bar = attribute == u"Meter"        ? &feed
                      : attribute == u"MeterLeft"  ? &feedLeft
                      : attribute == u"MeterRight" ? &feedRight
                                                   : nullptr;
    if (!bar || !*bar) {
        return {};
    }
    return [bar](const QVariant& level) { (*bar)(level.toInt()); };
}

} // namespace quillon
